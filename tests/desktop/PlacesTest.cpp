#include "desktop/DesktopTest.h"

#include <QDebug>
#include <QMargins>

#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <algorithm>
#include <filesystem>
#include <optional>

namespace plenair {
namespace {

constexpr QRect kScreen(0, 0, 1280, 1024);

// Where a window stands with the frame around it; empty if it isn't on the screen.
QRect Frame(const std::string& title) {
    const QRect client = TheScreen().Client(TheScreen().Find(title));
    const auto frame = TheScreen().Numbers(TheScreen().Find(title), "_NET_FRAME_EXTENTS");
    if (client.isEmpty() || frame.size() != 4) {
        return client;
    }
    const std::vector<int> wide(frame.begin(), frame.end()); // left, right, top, bottom
    return client + QMargins(wide[0], wide[2], wide[1], wide[3]);
}

// How high in the stack a window is; -1 if it isn't there.
std::ptrdiff_t Level(Window window) {
    const auto stack = TheScreen().Stack();
    const auto place = std::find(stack.begin(), stack.end(), window);
    return place == stack.end() ? -1 : place - stack.begin();
}

bool HasState(Window window, const char* state) {
    return TheScreen().Holds(window, "_NET_WM_STATE", state);
}

// A bar along an edge of the screen that keeps windows away, as a desktop's panel does: it takes what the
// margins say, of which one is not 0.
class Panel : public OtherWindow {
  public:
    explicit Panel(const QMargins& taken) : OtherWindow(Place(taken)) {
        Set("_NET_WM_WINDOW_TYPE", XA_ATOM,
            {static_cast<long>(XInternAtom(TheScreen().Connection(), "_NET_WM_WINDOW_TYPE_DOCK", False))});
        Set("_NET_WM_STRUT_PARTIAL", XA_CARDINAL, // then from where to where on each side
            {taken.left(), taken.right(), taken.top(), taken.bottom(), 0, 1023, 0, 1023, 0, 1279, 0, 1279});
        Show();
        const std::vector<unsigned long> whole = {0, 0, 1280, 1024};
        Until([&] {
            auto area = TheScreen().Numbers(TheScreen().Root(), "_NET_WORKAREA");
            area.resize(4);
            return area != whole;
        });
    }

  private:
    static QRect Place(const QMargins& taken) {
        const int across = taken.left() > 0    ? taken.left() - kScreen.width()
                           : taken.right() > 0 ? kScreen.width() - taken.right()
                                               : 0;
        const int down = taken.top() > 0      ? taken.top() - kScreen.height()
                         : taken.bottom() > 0 ? kScreen.height() - taken.bottom()
                                              : 0;
        return kScreen & kScreen.translated(across, down);
    }
};

// Where windows stand, as the X server sees it.
class Places : public DesktopTest {
  protected:
    void AwaitKeyboard(const std::string& title) {
        AwaitThat(title + " has the keyboard",
                  [&] { return TheScreen().HasKeyboard(TheScreen().Find(title)); });
    }
    void AwaitPlace(const std::string& title, const QRect& place) {
        AwaitThat(title + " stands at " + QDebug::toString(place).toStdString(),
                  [&] { return Frame(title) == place; });
    }

    void Start() {
        DesktopTest::Start();
        AwaitKeyboard("Plenair Lite");
    }
    void OpenSolver() {
        Play("mnuFile>mnuFileMajor | active: frmMajorCalc");
        AwaitKeyboard("Plenair");
        // It takes its place when it has its frame.
        AwaitThat("the solver fills the screen",
                  [] { return Frame("Plenair").height() == kScreen.height(); });
        TheScreen().AwaitManager();
    }
    void ShowSheet() {
        Click("chkParam");
        AwaitKeyboard("Duct Parameters");
    }
    // By a click that does nothing.
    void ReturnToSolver() {
        Click("picGrid", 200, 300, 3);
        AwaitKeyboard("Plenair");
    }
    void HideSheet() {
        ReturnToSolver();
        Click("chkParam");
        AwaitPlace("Duct Parameters", {});
    }

    // Moves a window, in which `control` is, as a user does by the window manager's keys; gives the place of
    // its frame then.
    QRect Move(const std::string& title, const std::string& control, int right, int down) {
        AwaitThat("the program sees " + title, [&] { return !Place(control).isEmpty(); });
        const QRect before = Place(control);
        constexpr long kNorthWest = 1 | 3 << 8; // that is the frame's corner; left and top are given
        const QRect place = Frame(title).translated(right, down);
        TheScreen().Tell(TheScreen().Root(), TheScreen().Find(title), "_NET_MOVERESIZE_WINDOW",
                         {kNorthWest, place.left(), place.top()});
        AwaitPlace(title, place);
        AwaitThat("the program knows it", [&] { return Place(control).left() == before.left() + right; });
        return place;
    }

    // The window that asks something while sheet and solver are there; 0 if there is none yet.
    static Window Question() {
        for (const Window window : TheScreen().Stack()) {
            if (window != TheScreen().Find("Plenair") && window != TheScreen().Find("Duct Parameters") &&
                TheScreen().HasKeyboard(window)) {
                return window;
            }
        }
        return 0;
    }
};

// What a panel takes of the screen, and the primary monitor from one x to another; another monitor has the
// rest.
struct Desk {
    QMargins Taken;
    int Left = 0;
    int Right = kScreen.width();
};

class PlacesOnADesk : public Places, public testing::WithParamInterface<Desk> {
  protected:
    PlacesOnADesk() {
        const auto monitor = [](const char* name, int left, int right, const char* output) {
            TheScreen().Run(QString("xrandr --setmonitor %1 %2/300x1024/300+%3+0 %4")
                                .arg(name)
                                .arg(right - left)
                                .arg(left)
                                .arg(output));
        };
        const auto [taken, left, right] = GetParam();
        if (right - left < kScreen.width()) {
            monitor("*bench", left, right, "screen");
            monitor("other", left > 0 ? 0 : right, left > 0 ? left : kScreen.width(), "none");
        }
        if (!taken.isNull()) {
            m_panel.emplace(taken);
        }
    }
    ~PlacesOnADesk() override { TheScreen().Run("xrandr --delmonitor bench --delmonitor other"); }

  private:
    std::optional<Panel> m_panel;
};

INSTANTIATE_TEST_SUITE_P(Desks, PlacesOnADesk,
                         testing::Values(Desk{}, Desk{{0, 40, 0, 0}}, Desk{{60, 0, 0, 0}},
                                         Desk{{0, 0, 0, 50}}, Desk{{0, 0, 60, 0}}, Desk{{}, 0, 800},
                                         Desk{{0, 40, 0, 0}, 480}, Desk{{0, 0, 60, 0}, 480}));

TEST_P(PlacesOnADesk, TheSheetComesUpAtTheGridsCornerAndStaysWhereItIsLeft) {
    const Desk desk = GetParam();
    const QRect primary(desk.Left, 0, desk.Right - desk.Left, kScreen.height());
    Start();
    AwaitThat("Lite is on the primary monitor", [&] { return primary.contains(Frame("Plenair Lite")); });
    OpenSolver();
    if (desk.Taken.isNull()) {
        AwaitPlace("Plenair", primary);
    }
    ShowSheet();
    EXPECT_GE(Frame("Plenair").top(), desk.Taken.top());
    AwaitThat("the sheet is at the grid's corner", [&] {
        const QPoint off = Frame("Duct Parameters").topRight() -
                           (Place("picGrid") & (primary - QMargins(0, 0, desk.Taken.right(), 0))).topRight();
        return off.x() > -15 && off.x() <= 0 && off.y() >= 0 && off.y() < 15;
    });
    QRect left = Frame("Duct Parameters");
    for (int time = 0; time < 3; ++time) {
        HideSheet();
        ShowSheet();
        AwaitPlace("Duct Parameters", left);
        left = Move("Duct Parameters", "chkFollowOn", -150, 150);
    }
}

TEST_F(Places, LiteKeepsItsPlace) {
    Start();
    QRect place;
    AwaitThat("Lite is at the screen's corner", [&place] {
        place = Frame("Plenair Lite");
        return place.topRight() == QPoint(kScreen.right(), 20);
    });
    for (const bool isMoved : {false, true}) {
        place = isMoved ? Move("Plenair Lite", "txtInputA", -400, 300) : place;
        Click("cmdMoreInfo");
        AwaitPlace("Plenair Lite", place.adjusted(0, 0, 0, 140));
        Click("cmdMoreInfo", 20);
        AwaitPlace("Plenair Lite", place);
        for (const bool above : {true, false}) {
            Play("mnuView>mnuViewOnTop");
            AwaitThat("the window manager knows", [&] {
                return HasState(TheScreen().Find("Plenair Lite"), "_NET_WM_STATE_ABOVE") == above;
            });
            AwaitPlace("Plenair Lite", place);
        }
        OpenSolver();
        AwaitPlace("Plenair", kScreen);
        Click("chkLabels"); // a redraw, which lays the window out again
        AwaitPlace("Plenair", kScreen);
        Play("@cmdClose @No");
        AwaitKeyboard("Plenair Lite");
        AwaitPlace("Plenair Lite", place);
    }
}

TEST_F(Places, WhatAsksStandsAboveTheSheetThatStandsAboveAllElse) {
    Start();
    OpenSolver();
    Play("@picGrid:200,200 @picGrid:300,200 @picGrid:400,200");
    ShowSheet();
    Await("maximum scrDuctNo", "2");
    const Window sheet = TheScreen().Find("Duct Parameters");
    EXPECT_TRUE(HasState(sheet, "_NET_WM_STATE_SKIP_TASKBAR"));
    Window question = 0;
    for (const char* button :
         {"cmdClearGrid(2)", "cmdSaveGsp", "cmdMajorOptions", "cmdClose", "cmdPrintGus"}) {
        ReturnToSolver();
        EXPECT_LT(Level(TheScreen().Find("Plenair")), Level(sheet));
        Click(button);
        AwaitThat("it asks", [&] { return (question = Question()) != 0; });
        // A click on the sheet raises it, as far as it may, and leaves the keyboard with the question.
        const QPoint corner = Frame("Duct Parameters").topRight();
        TheScreen().MoveTo(corner.x() - 14, corner.y() + 42);
        for (int time = 0; time < 2; ++time) {
            TheScreen().Button(1, true);
            TheScreen().Button(1, false);
            AwaitThat("the click is dealt with", [] { return TheScreen().IsPointerFree(); });
            EXPECT_LT(Level(sheet), Level(question)) << button;
        }
        if (button == std::string("cmdMajorOptions")) {
            EXPECT_EQ(question, TheScreen().Find("Options"));
            EXPECT_TRUE(HasState(question, "_NET_WM_STATE_SKIP_TASKBAR"));
            Click("cmdCancel");
        } else {
            Key("Escape");
        }
        AwaitThat("it has its answer", [&] { return Level(question) < 0; });
    }
}

TEST_F(Places, OfAWaylandDesktopTheXServerIsTaken) {
    if (!std::filesystem::exists("/usr/bin/weston")) {
        GTEST_SKIP() << "weston is not installed";
    }
    const std::string socket = File("wayland");
    Child weston;
    weston.setEnvironment(TheScreen().Environment());
    weston.startCommand(QString::fromStdString(
        "weston --backend=x11-backend.so --use-pixman --no-config --socket=" + socket));
    AwaitThat("the desktop is there", [&] { return std::filesystem::exists(socket); });
    const QString display = QString::fromStdString("WAYLAND_DISPLAY=" + socket);
    DesktopTest::Start({"XDG_SESSION_TYPE=wayland", display});
    Await("enabled mnuViewOnTop", "true");
    Kill();
    DesktopTest::Start({"DISPLAY=", display});
    Play("| enabled mnuViewOnTop: false; toolTipsVisible mnuView: true\n"
         "| toolTip mnuViewOnTop: A Wayland desktop lets no program hold its window above the others.");
}

} // namespace
} // namespace plenair

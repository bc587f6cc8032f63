#include "desktop/DesktopTest.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <sstream>

namespace plenair {
namespace {

struct Place {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;
    int Right() const { return Left + Width; }
    int Bottom() const { return Top + Height; }
    bool operator==(const Place&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const Place& place) {
    return stream << place.Left << ',' << place.Top << ' ' << place.Width << 'x' << place.Height;
}

std::vector<unsigned long> Numbers(Window window, const char* property) {
    return TheScreen().Numbers(window, property);
}

// The windows that a window manager knows, from the lowest up.
std::vector<Window> Stack() {
    const auto stack = Numbers(TheScreen().Root(), "_NET_CLIENT_LIST_STACKING");
    return stack.empty() ? Numbers(TheScreen().Root(), "_NET_CLIENT_LIST")
                         : stack; // as of xfwm4 with one window
}

// What stands on the screen with that title; 0 if nothing does.
Window Find(const std::string& title) {
    for (const Window window : Stack()) {
        char* name = nullptr;
        const bool found = XFetchName(TheScreen().Connection(), window, &name) != 0 && title == name;
        XFree(name);
        if (found) {
            return window;
        }
    }
    return 0;
}

// The client area of a window; nothing if it isn't on the screen.
Place Client(Window window) {
    Display* const display = TheScreen().Connection();
    XWindowAttributes look = {};
    if (window == 0 || XGetWindowAttributes(display, window, &look) == 0 || look.map_state != IsViewable) {
        return {};
    }
    Place place{0, 0, look.width, look.height};
    Window child = 0;
    XTranslateCoordinates(display, window, DefaultRootWindow(display), 0, 0, &place.Left, &place.Top, &child);
    return place;
}

// The same with the frame around it.
Place Frame(const std::string& title) {
    const Window window = Find(title);
    Place place = Client(window);
    const auto frame = Numbers(window, "_NET_FRAME_EXTENTS"); // left, right, top, bottom
    if (place != Place() && frame.size() == 4) {
        const std::vector<int> wide(frame.begin(), frame.end());
        place = {place.Left - wide[0], place.Top - wide[2], place.Width + wide[0] + wide[1],
                 place.Height + wide[2] + wide[3]};
    }
    return place;
}

// What the window manager knows of the keyboard. The server, and the toolkit, know it earlier; a click in
// between may be lost.
bool HasKeyboard(Window window) {
    const auto active = Numbers(TheScreen().Root(), "_NET_ACTIVE_WINDOW");
    return window != 0 && !active.empty() && active[0] == window;
}

// How high in the stack a window is; -1 if it isn't there.
std::ptrdiff_t Level(Window window) {
    const std::vector<Window> stack = Stack();
    const auto place = std::find(stack.begin(), stack.end(), window);
    return place == stack.end() ? -1 : place - stack.begin();
}

bool HasState(Window window, const char* state) {
    const auto states = Numbers(window, "_NET_WM_STATE");
    return std::count(states.begin(), states.end(), XInternAtom(TheScreen().Connection(), state, False)) > 0;
}

enum class Edge { Left, Right, Top, Bottom };

// A bar along an edge of the screen that keeps windows away, as a desktop's panel does.
class Panel {
  public:
    Panel(Edge edge, int thickness) : m_display(TheScreen().Connection()) {
        const int width = DisplayWidth(m_display, 0);
        const int height = DisplayHeight(m_display, 0);
        const bool lies = edge == Edge::Top || edge == Edge::Bottom;
        m_window = XCreateSimpleWindow(
            m_display, DefaultRootWindow(m_display), edge == Edge::Right ? width - thickness : 0,
            edge == Edge::Bottom ? height - thickness : 0, static_cast<unsigned>(lies ? width : thickness),
            static_cast<unsigned>(lies ? thickness : height), 0, 0, 0x808080);
        Set("_NET_WM_WINDOW_TYPE", XA_ATOM,
            {static_cast<long>(XInternAtom(m_display, "_NET_WM_WINDOW_TYPE_DOCK", False))});
        XSizeHints hints = {};
        hints.flags = USPosition;
        XSetWMNormalHints(m_display, m_window, &hints); // where it was made
        std::vector<long> strut(12);
        const auto side = static_cast<std::size_t>(edge);
        strut[side] = thickness;
        strut[4 + 2 * side + 1] = (lies ? width : height) - 1;
        Set("_NET_WM_STRUT_PARTIAL", XA_CARDINAL, strut);
        XMapWindow(m_display, m_window);
        const auto whole = std::vector<unsigned long>{0, 0, static_cast<unsigned long>(width),
                                                      static_cast<unsigned long>(height)};
        Until([&] {
            std::vector<unsigned long> area = Numbers(TheScreen().Root(), "_NET_WORKAREA");
            area.resize(4);
            return area != whole;
        });
    }
    ~Panel() {
        XDestroyWindow(m_display, m_window);
        XSync(m_display, False);
    }
    Panel(const Panel&) = delete;
    Panel& operator=(const Panel&) = delete;

  private:
    void Set(const char* property, Atom type, const std::vector<long>& values) const {
        XChangeProperty(m_display, m_window, XInternAtom(m_display, property, False), type, 32,
                        PropModeReplace, reinterpret_cast<const unsigned char*>(values.data()),
                        static_cast<int>(values.size()));
    }

    Display* m_display;
    Window m_window = 0;
};

// Where windows stand, as the X server sees it.
class Places : public DesktopTest {
  protected:
    void Start(const std::vector<std::string>& more = {}) {
        DesktopTest::Start(more);
        AwaitThat("Lite has the keyboard", [] { return HasKeyboard(Find("Plenair Lite")); });
    }
    void OpenSolver() {
        Play("mnuFile>mnuFileMajor | active: frmMajorCalc");
        AwaitThat("the solver has the keyboard", [] { return HasKeyboard(Find("Plenair")); });
        // It takes its place when it has its frame.
        AwaitThat("the solver fills the screen", [] { return Frame("Plenair").Height == 1024; });
        TheScreen().AwaitManager();
    }
    void ShowSheet() {
        Click("chkParam");
        AwaitThat("the sheet has the keyboard", [] { return HasKeyboard(Find("Duct Parameters")); });
    }
    // By a click that does nothing.
    void ReturnToSolver() {
        ClickAt("picGrid", 200, 300, 3);
        AwaitThat("the solver has the keyboard", [] { return HasKeyboard(Find("Plenair")); });
    }
    void HideSheet() {
        ReturnToSolver();
        Click("chkParam");
        AwaitPlace("Duct Parameters", {});
    }

    Place Control(const std::string& name) {
        Place place;
        std::istringstream(Ask("place " + name)) >> place.Left >> place.Top >> place.Width >> place.Height;
        return place;
    }

    // Moves a window, in which `control` is, as a user does by the window manager's keys; gives the place of
    // its frame then.
    Place Move(const std::string& title, const std::string& control, int right, int down) {
        AwaitThat("the program sees " + title, [&] { return Control(control) != Place(); });
        const Place before = Control(control);
        constexpr long kNorthWest = 1 | 3 << 8; // that is the frame's corner; left and top are given
        Place place = Frame(title);
        place.Left += right;
        place.Top += down;
        TheScreen().Tell(TheScreen().Root(), Find(title), "_NET_MOVERESIZE_WINDOW",
                         {kNorthWest, place.Left, place.Top});
        AwaitPlace(title, place);
        AwaitThat("the program knows it", [&] { return Control(control).Left == before.Left + right; });
        return place;
    }

    // The window that asks something while sheet and solver are there; 0 if there is none yet.
    static Window Question() {
        for (const Window window : Stack()) {
            if (window != Find("Plenair") && window != Find("Duct Parameters") && HasKeyboard(window)) {
                return window;
            }
        }
        return 0;
    }

    void AwaitPlace(const std::string& title, const Place& place) {
        std::ostringstream what;
        what << title << " stands at " << place;
        AwaitThat(what.str(), [&] { return Frame(title) == place; });
    }
};

// A desktop of 1280 by 1024: a panel of so many pixels along an edge, none if 0, and the primary monitor from
// one x to another; another monitor has the rest.
struct Desk {
    Edge PanelEdge = Edge::Top;
    int PanelSize = 0;
    int Left = 0;
    int Right = 1280;
};

class PlacesOnADesk : public Places, public testing::WithParamInterface<Desk> {
  protected:
    PlacesOnADesk() {
        const auto monitor = [](const char* name, int left, int right, const char* output) {
            const std::string width = std::to_string(right - left);
            Run({"xrandr", "--setmonitor", name, width + "/300x1024/300+" + std::to_string(left) + "+0",
                 output});
        };
        const auto [edge, size, left, right] = GetParam();
        if (right - left < 1280) {
            monitor("*bench", left, right, "screen");
            monitor("other", left > 0 ? 0 : right, left > 0 ? left : 1280, "none");
        }
        m_panel = size > 0 ? std::make_unique<Panel>(edge, size) : nullptr;
    }
    ~PlacesOnADesk() override {
        if (GetParam().Right - GetParam().Left < 1280) {
            Run({"xrandr", "--delmonitor", "bench", "--delmonitor", "other"});
        }
    }

  private:
    static void Run(const std::vector<std::string>& words) {
        Child program(words, TheScreen().Environment());
        Until([&program] { return program.HasEnded(); });
    }

    std::unique_ptr<Panel> m_panel;
};

INSTANTIATE_TEST_SUITE_P(Desks, PlacesOnADesk,
                         testing::Values(Desk{}, Desk{Edge::Top, 40}, Desk{Edge::Left, 60},
                                         Desk{Edge::Bottom, 50}, Desk{Edge::Right, 60},
                                         Desk{Edge::Top, 0, 0, 800}, Desk{Edge::Top, 40, 480, 1280},
                                         Desk{Edge::Right, 60, 480, 1280}));

TEST_P(PlacesOnADesk, TheSheetComesUpAtTheGridsCornerAndStaysWhereItIsLeft) {
    const Desk desk = GetParam();
    Start();
    AwaitThat("Lite is on the primary monitor", [&desk] {
        const Place lite = Frame("Plenair Lite");
        return lite.Left >= desk.Left && lite.Right() <= desk.Right;
    });
    OpenSolver();
    if (desk.PanelSize == 0) {
        AwaitPlace("Plenair", {desk.Left, 0, desk.Right - desk.Left, 1024});
    }
    ShowSheet();
    EXPECT_GE(Frame("Plenair").Top, desk.PanelEdge == Edge::Top ? desk.PanelSize : 0);
    AwaitThat("the sheet is at the grid's corner", [&] {
        const Place sheet = Frame("Duct Parameters");
        const Place grid = Control("picGrid");
        const int right =
            std::min(grid.Right(), desk.Right - (desk.PanelEdge == Edge::Right ? desk.PanelSize : 0));
        return sheet.Top >= grid.Top && sheet.Top < grid.Top + 15 && sheet.Right() <= right &&
               sheet.Right() > right - 15;
    });
    Place left = Frame("Duct Parameters");
    for (int time = 0; time < 2; ++time) {
        HideSheet();
        ShowSheet();
        AwaitPlace("Duct Parameters", left);
        left = Move("Duct Parameters", "chkFollowOn", -150, 150);
    }
    HideSheet();
    ShowSheet();
    AwaitPlace("Duct Parameters", left);
}

TEST_F(Places, LiteKeepsItsPlace) {
    Start();
    Place place;
    AwaitThat("Lite is at the screen's corner", [&place] {
        place = Frame("Plenair Lite");
        return place.Right() == 1280 && place.Top == 20;
    });
    for (const int down : {0, 300}) {
        place = down == 0 ? place : Move("Plenair Lite", "txtInputA", -400, down);
        Click("cmdMoreInfo");
        Place unfolded = place;
        unfolded.Height += 140;
        AwaitPlace("Plenair Lite", unfolded);
        ClickAt("cmdMoreInfo", 20, 8);
        AwaitPlace("Plenair Lite", place);
        for (const bool above : {true, false}) {
            Choose("mnuView", "mnuViewOnTop");
            AwaitThat("the window manager knows",
                      [&] { return HasState(Find("Plenair Lite"), "_NET_WM_STATE_ABOVE") == above; });
            AwaitPlace("Plenair Lite", place);
        }
        OpenSolver();
        AwaitPlace("Plenair", {0, 0, 1280, 1024});
        Click("chkLabels"); // a redraw, which lays the window out again
        AwaitPlace("Plenair", {0, 0, 1280, 1024});
        Click("cmdClose");
        Click("No");
        AwaitThat("Lite has the keyboard", [] { return HasKeyboard(Find("Plenair Lite")); });
        AwaitPlace("Plenair Lite", place);
    }
}

TEST_F(Places, WhatAsksStandsAboveTheSheetThatStandsAboveAllElse) {
    Start();
    OpenSolver();
    for (const int x : {200, 300, 400}) {
        ClickAt("picGrid", x, 200);
    }
    ShowSheet();
    Await("maximum scrDuctNo", "2");
    EXPECT_TRUE(HasState(Find("Duct Parameters"), "_NET_WM_STATE_SKIP_TASKBAR"));
    Window question = 0;
    for (const char* button :
         {"cmdClearGrid(2)", "cmdSaveGsp", "cmdMajorOptions", "cmdClose", "cmdPrintGus"}) {
        ReturnToSolver();
        EXPECT_LT(Level(Find("Plenair")), Level(Find("Duct Parameters")));
        Click(button);
        AwaitThat("it asks", [&] { return (question = Question()) != 0; });
        // A click on the sheet raises it, as far as it may, and leaves the keyboard with the question.
        const Place sheet = Frame("Duct Parameters");
        TheScreen().MoveTo(sheet.Right() - 15, sheet.Top + 42);
        for (int time = 0; time < 2; ++time) {
            TheScreen().Button(1, true);
            TheScreen().Button(1, false);
            AwaitThat("the click is dealt with", [] { return TheScreen().IsPointerFree(); });
            EXPECT_LT(Level(Find("Duct Parameters")), Level(question)) << button;
        }
        if (button == std::string("cmdMajorOptions")) {
            EXPECT_EQ(question, Find("Options"));
            EXPECT_TRUE(HasState(question, "_NET_WM_STATE_SKIP_TASKBAR"));
            Click("cmdCancel");
        } else {
            Keys("Escape");
        }
        AwaitThat("it has its answer", [&] { return Level(question) < 0; });
    }
}

TEST_F(Places, OfAWaylandDesktopTheXServerIsTaken) {
    if (!std::filesystem::exists("/usr/bin/weston")) {
        GTEST_SKIP() << "weston is not installed";
    }
    const std::string socket = File("wayland");
    const Child weston(
        {"weston", "--backend=x11-backend.so", "--use-pixman", "--no-config", "--socket=" + socket},
        TheScreen().Environment(), -1, File("weston.log"));
    AwaitThat("the desktop is there", [&] { return std::filesystem::exists(socket); });
    Start({"XDG_SESSION_TYPE=wayland", "WAYLAND_DISPLAY=" + socket});
    Await("enabled mnuViewOnTop", "true");
    Kill();
    DesktopTest::Start({"DISPLAY=", "WAYLAND_DISPLAY=" + socket});
    Await("enabled mnuViewOnTop", "false");
    Await("toolTipsVisible mnuView", "true");
    Await("toolTip mnuViewOnTop", "A Wayland desktop lets no program hold its window above the others.");
}

} // namespace
} // namespace plenair

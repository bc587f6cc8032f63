#include "windows/WindowTest.h"
#include "core/SettingsFile.h"
#include "core/start/Main.h"

#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <span>

namespace plenair {

namespace {

QWindow* ActiveWindow() {
    QWidget* const popup = QApplication::activePopupWidget();
    return (popup != nullptr ? popup : QApplication::activeWindow())->windowHandle();
}

std::string FlowsOfDucts() {
    return Joined(std::span(Ducts).subspan(1),
                  [](const DuctRecord& duct) { return ShortestText(duct.Flow); });
}

std::string Network() {
    return Joined(std::span(Ducts).subspan(1), [](const DuctRecord& duct) {
        std::ostringstream text;
        text << TypeLetter(duct.Colour) << ' ' << std::lround(duct.StartX * kCellsAcross) << ','
             << std::lround(duct.StartY * kCellsDown) << '-' << std::lround(duct.EndX * kCellsAcross) << ','
             << std::lround(duct.EndY * kCellsDown);
        return text.str();
    });
}

void ChooseFromMenu(Form& window, const QMenu& menu, QAction& entry) {
    QMenuBar* const bar = window.MenuBar();
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                      bar->mapTo(&window, bar->actionGeometry(menu.menuAction()).center()));
    QTest::mouseClick(menu.windowHandle(), Qt::LeftButton, {}, menu.actionGeometry(&entry).center());
}

} // namespace

void ClickAt(QWidget& control, QPoint place, Qt::MouseButton button) {
    if (!control.visibleRegion().contains(place)) {
        ADD_FAILURE() << control.objectName().toStdString() << " can't be seen";
        return;
    }
    QWidget* const window = control.window();
    const QPoint inWindow = control.mapTo(window, place);
    QTest::mousePress(window->windowHandle(), button, {}, inWindow);
    if (!window->isActiveWindow()) {
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    }
    QTest::mouseRelease(window->windowHandle(), button, {}, inWindow);
}

void ClickOn(QWidget* control) {
    ClickAt(*control, control->rect().center());
}

void WorkOn(const std::function<void()>& open, const std::vector<DialogStep>& steps) {
    std::size_t next = 0;
    bool isBusy = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        QWidget* const dialog = QApplication::activeModalWidget();
        if (dialog != nullptr && dialog->isActiveWindow() && !std::exchange(isBusy, true)) {
            next < steps.size() ? steps[next++](*dialog) : dialog->hide();
            isBusy = false;
        }
    });
    timer.start(20);
    open();
    EXPECT_EQ(next, steps.size()) << "dialogs that didn't come";
}

std::string Across(const QImage& picture, int x, int y) {
    std::string runs;
    const int width = picture.width();
    const int end = width + picture.height();
    const auto colour = [&](int at) {
        return at < width ? picture.pixel(at, y) : picture.pixel(x, at - width);
    };
    for (int at = 0, length = 1; at < end; ++at, ++length) {
        const bool isEdge = at + 1 == width || at + 1 == end;
        if (isEdge || colour(at + 1) != colour(at)) {
            runs += QColor(colour(at)).name().toStdString() + " " + std::to_string(length) +
                    (isEdge ? "; " : ", ");
            length = 0;
        }
    }
    return runs;
}

void ExpectAsInFile(const std::string& name, const std::string& seen) {
    const std::string path = PLENAIR_SOURCES "/windows/" + name;
    if (qEnvironmentVariableIsSet("PLENAIR_WRITE_LAYOUT")) {
        WriteFile(path, seen);
    }
    EXPECT_EQ(seen, ReadFile(path));
}

std::string Focused() {
    QWidget* const focus = QApplication::focusWidget();
    return focus != nullptr ? focus->objectName().toStdString() : "nothing";
}

WindowTest::WindowTest() {
    dialogsExpected = false;
    environment.NoteReminder();
    WriteSettingsFile(Settings);
    actions["fill"] = [this] { Play("txtInputB=300 txtInputA=500 Return | table: filled"); };
    questions["focus"] = Focused;
    questions["tabs"] = [this] {
        std::string tabs = Focused();
        for (Play("Tab"); !tabs.starts_with(Focused()) && tabs.size() < 300; Play("Tab")) {
            tabs += " " + Focused();
        }
        return tabs;
    };
    questions["selected"] = [] {
        const auto* box = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        return Focused() + " " + (box != nullptr ? box->selectedText().toStdString() : "");
    };
    questions["table"] = [this] { return Table(); };
    questions["basis"] = [] { return std::to_string(Settings.CalcBasis); };
    questions["log"] = [this] { return desktop.LogInOneLine(); };
}

void WindowTest::WriteSettingsFile(const SettingsRecord& settings) {
    Settings = settings;
    SaveSettings();
    Settings = SettingsRecord();
}

void WindowTest::Start() {
    Main();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
    QCoreApplication::processEvents();
    EXPECT_TRUE(desktop.LogInOneLine().ends_with("call"));
    desktop.Log.clear();
}

void WindowTest::EndProgram() {
    Unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void WindowTest::Do(const std::string& step) {
    const std::string rest = step.substr(1);
    const std::size_t equals = step.find('=');
    const std::size_t angle = step.find('>');
    if (desktop.Expect(step, environment.Folder().Path())) {
        return;
    }
    if (step == "@next" || step == "@back") {
        QWidget& bar = Find("scrDuctNo");
        ClickAt(bar, step == "@next" ? bar.rect().bottomRight() - QPoint(4, 4) : QPoint(4, 4));
    } else if (step[0] == '@') {
        ClickOn(&Find(rest));
    } else if (step[0] == '#') {
        QWidget& grid = Find("picGrid");
        const bool byMiddle = rest[0] == 'm';
        int column = 9;
        int row = 9;
        std::sscanf(rest.c_str() + (byMiddle ? 1 : 0), "%d,%d", &column, &row);
        ClickAt(grid, {column * grid.width() / kCellsAcross + 3, row * grid.height() / kCellsDown + 4},
                byMiddle      ? Qt::MiddleButton
                : rest == "r" ? Qt::RightButton
                              : Qt::LeftButton);
    } else if (step[0] == '!') {
        actions.at(rest)();
    } else if (angle != step.npos) {
        ChooseFromMenu(Window(), Find<QMenu>(step.substr(0, angle)), Find<QAction>(step.substr(angle + 1)));
    } else if (equals != step.npos) {
        TextBox& box = Box(step.substr(0, equals));
        ClickOn(&box);
        box.SelectAll();
        equals + 1 == step.size() ? Do("Backspace") : Do(step.substr(equals + 1));
    } else if (step.find('+') != step.npos || (rest != "" && std::isupper(step[0]) != 0)) {
        const QKeyCombination keys = QKeySequence(QString::fromStdString(step))[0];
        QTest::keyClick(ActiveWindow(), keys.key(), keys.keyboardModifiers());
    } else {
        for (const char character : step) {
            QTest::keyClick(ActiveWindow(), character);
        }
    }
}

std::string WindowTest::Ask(const std::string& question) {
    const std::size_t blank = question.find(' ');
    return questions.contains(question) ? questions.at(question)()
                                        : Find<QObject>(question.substr(blank + 1))
                                              .property(question.substr(0, blank).c_str())
                                              .toString()
                                              .toStdString();
}

std::string WindowTest::Table() const {
    const auto cells = [this](const char* grid, int row) {
        return Joined(std::array{0, 1, 2, 3},
                      [&](int column) { return Find<MSFlexGrid>(grid).TextMatrix(row, column); });
    };
    const auto duct = [&](int row) {
        const auto& lamp = Find<Label>("lblRatio(" + std::to_string(row) + ")");
        return cells("grdMinorCalc", row) +
               (lamp.autoFillBackground() ? " " + lamp.BackColour().name().toStdString() : "");
    };
    const std::string round = cells("grdOtherShapes", 0);
    const std::string table =
        Joined(std::array{0, 1, 2, 3, 4}, duct, ", ") + (round.empty() ? "" : ", round " + round);
    return table.empty() ? "blank"
           : table == "450 250 4.74 0.72 #00ff00, 400 275 4.80 0.74 #00ff00, 375 300 4.68 0.69 #00ff00, "
                      "350 325 4.61 0.67 #00ff00, 325 350 4.61 0.67 #00ff00, round 375 4.53 0.69"
               ? "filled"
               : table;
}

QImage WindowTest::OnScreen(const std::string& name) const {
    QCoreApplication::processEvents();
    QWidget& control = Find(name);
    if (control.devicePixelRatio() != 1) { // its edge may lie within a pixel of the screen
        return control.grab().toImage();
    }
    const QRect place(control.mapTo(control.window(), QPoint()), control.size());
    return control.screen()
        ->grabWindow(control.window()->winId(), place.x(), place.y(), place.width(), place.height())
        .toImage();
}

SolverTest::SolverTest() {
    questions["flows"] = FlowsOfDucts;
    questions["network"] = Network;
    questions["duct"] = [this] {
        const auto& label = Find<Label>("lblDuctNo");
        return (label.text() + " " + label.palette().color(QPalette::WindowText).name()).toStdString();
    };
    questions["sheet"] = [this] {
        return Joined(kSheetRows, [this](const SheetRow& row) { return SheetBoxOf(row).Text(); });
    };
    questions["looks"] = [this] {
        const auto lookOf = [this](const SheetRow& row) {
            const TextBox& box = SheetBoxOf(row);
            const bool white = box.palette().color(QPalette::Base) == Qt::white;
            return box.isReadOnly() ? (white ? "L" : "l") : (white ? "o" : "!");
        };
        return Joined(kSheetRows, lookOf, "");
    };
    questions["state"] = [this] {
        return FlowsOfDucts() + " " + ProjectName + (Solved != kFlagClear ? " solved" : "") +
               (Find("cmdCalcPressure").isVisible() ? "+" : "") + ", " + Ask("text lblDuctNo") + " " +
               Ask("text txtParam(1)");
    };
}

void SolverTest::OpenSolver() {
    Start();
    Play("mnuFile>mnuFileMajor");
    m_solver = FindWindow<frmMajorCalc>();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_solver));
    QCoreApplication::processEvents();
    desktop.Log.clear();
}

void SolverTest::DrawRow(const std::string& types) {
    int column = 1;
    Play("#1,3");
    for (const char type : types) {
        Play("@optDuct(" + std::to_string(std::string("RFC").find(type)) + ") #" + std::to_string(++column) +
             ",3");
    }
    Play("#r");
}

void SolverTest::OpenSheet(const std::string& types) {
    OpenSolver();
    DrawRow(types);
    Play("@chkParam");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Sheet()));
}

} // namespace plenair

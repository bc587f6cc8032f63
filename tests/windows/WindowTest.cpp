#include "windows/WindowTest.h"
#include "core/SettingsFile.h"
#include "core/start/Main.h"
#include "support/Script.h"

#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>
#include <QWindow>

namespace plenair {

namespace {

QWindow* ActiveWindow() {
    QWidget* const popup = QApplication::activePopupWidget();
    return (popup != nullptr ? popup : QApplication::activeWindow())->windowHandle();
}

std::string Joined(const MSFlexGrid& grid, int row) {
    std::string joined;
    for (int column = 0; column < grid.Columns(); ++column) {
        const std::string& text = grid.TextMatrix(row, column);
        joined += (joined.empty() || text.empty() ? "" : " ") + text;
    }
    return joined;
}

std::string FlowsOfDucts() {
    std::string flows;
    for (int number = 1; number <= DuctCount; ++number) {
        flows += (number == 1 ? "" : " ") + ShortestText(Duct(number).Flow);
    }
    return flows;
}

// The ducts in the crossings of the grid lines, as in "R 1,1-2,1 F 2,1-2,3".
std::string Network() {
    std::ostringstream all;
    for (int number = 1; number <= DuctCount; ++number) {
        const DuctRecord& duct = Duct(number);
        all << (number == 1 ? "" : " ") << TypeLetter(duct.Colour) << ' '
            << std::lround(duct.StartX * kCellsAcross) << ',' << std::lround(duct.StartY * kCellsDown) << '-'
            << std::lround(duct.EndX * kCellsAcross) << ',' << std::lround(duct.EndY * kCellsDown);
    }
    return all.str();
}

} // namespace

void Press(int key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(ActiveWindow(), static_cast<Qt::Key>(key), modifiers);
}

void Type(const std::string& text) {
    for (const char character : text) {
        QTest::keyClick(ActiveWindow(), character);
    }
}

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

std::string Focused() {
    QWidget* const focus = QApplication::focusWidget();
    return focus != nullptr ? focus->objectName().toStdString() : "nothing";
}

WindowTest::WindowTest() {
    dialogsExpected = false;
    m_environment.NoteReminder();
    WriteSettingsFile(Settings);
}

void WindowTest::WriteSettingsFile(const SettingsRecord& settings) const {
    Settings = settings;
    SaveSettings();
    Settings = SettingsRecord();
}

void WindowTest::Start() {
    Main();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
    QCoreApplication::processEvents();
}

void WindowTest::EndProgram() {
    Unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void WindowTest::Play(const std::string& script) {
    const testing::ScopedTrace trace(__FILE__, __LINE__, script);
    PlayScript(
        script, [this](const std::string& step) { Do(step); },
        [this](const std::string& question, const std::string& answer) {
            EXPECT_EQ(Ask(question), answer) << question;
        });
}

void WindowTest::Do(const std::string& step) {
    const std::string rest = step.substr(1);
    const std::size_t equals = step.find('=');
    const std::size_t angle = step.find('>');
    if (desktop.Expect(step, m_environment.Folder())) {
        return;
    }
    if (step == "@next" || step == "@back") {
        QWidget& bar = Find("scrDuctNo");
        ClickAt(bar, step == "@next" ? bar.rect().bottomRight() - QPoint(4, 4) : QPoint(4, 4));
    } else if (step[0] == '@') {
        Click(rest);
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
    } else if (angle != step.npos) {
        ChooseFromMenu(step.substr(0, angle), step.substr(angle + 1));
    } else if (equals != step.npos) {
        Enter(step.substr(0, equals), step.substr(equals + 1));
    } else if (step.find('+') != step.npos || (rest != "" && std::isupper(step[0]) != 0)) {
        const QKeyCombination keys = QKeySequence(QString::fromStdString(step))[0];
        Press(keys.key(), keys.keyboardModifiers());
    } else {
        Type(step);
    }
}

std::string WindowTest::Ask(const std::string& question) const {
    const std::string asked = question.substr(0, question.find(' '));
    const std::string name = question.substr(std::min(asked.size() + 1, question.size()));
    if (asked == "focus") {
        return Focused();
    }
    if (asked == "selected") { // in the box that has the focus
        const auto* box = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        return Focused() + " " + (box != nullptr ? box->selectedText().toStdString() : "");
    }
    if (asked == "table") {
        return IsBlank() ? "blank" : Table();
    }
    if (asked == "row") {
        return Row(std::stoi(name));
    }
    if (asked == "round") {
        return RoundDuct();
    }
    if (asked == "basis") {
        return std::to_string(Settings.CalcBasis);
    }
    if (asked == "flows") {
        return FlowsOfDucts();
    }
    if (asked == "network") {
        return Network();
    }
    if (asked == "state") { // + where the pressures can be asked for: "100 200 plant.gsp solved+, F2 200"
        const std::string duct = Ask("duct");
        return FlowsOfDucts() + " " + ProjectName + (Solved != kFlagClear ? " solved" : "") +
               (Find("cmdCalcPressure").isVisible() ? "+" : "") + ", " + duct.substr(0, duct.find(' ')) +
               " " + Text("txtParam(1)");
    }
    if (asked == "log") { // what reached the desktop
        return desktop.LogInOneLine();
    }
    if (asked == "duct") { // the caption of the sheet and its colour, as in "R3 #ff0000"
        const auto& label = Find<Label>("lblDuctNo");
        return (label.text() + " " + label.palette().color(QPalette::WindowText).name()).toStdString();
    }
    if (asked == "sheet" || asked == "looks") { // a letter for each box: open on white o, locked on white L,
        std::string all;                        // without white l
        for (int number = 1; number <= 8; ++number) {
            const TextBox& box = Box("txtParam(" + std::to_string(number) + ")");
            const bool white = box.palette().color(QPalette::Base) == Qt::white;
            all += asked == "sheet"   ? (number == 1 ? "" : " ") + box.Text()
                   : box.isReadOnly() ? std::string(white ? "L" : "l")
                                      : std::string(white ? "o" : "!");
        }
        return all;
    }
    return Find(name).property(asked.c_str()).toString().toStdString();
}

void WindowTest::ChooseFromMenu(const std::string& menu, const std::string& entry) const {
    QMenu& opened = Find<QMenu>(menu);
    QMenuBar* const bar = Window().MenuBar();
    QTest::mouseClick(Window().windowHandle(), Qt::LeftButton, {},
                      bar->mapTo(&Window(), bar->actionGeometry(opened.menuAction()).center()));
    QTest::mouseClick(opened.windowHandle(), Qt::LeftButton, {},
                      opened.actionGeometry(&Find<QAction>(entry)).center());
}

void WindowTest::Enter(const std::string& box, const std::string& text) const {
    Click(box);
    Box(box).SelectAll();
    text.empty() ? Press(Qt::Key_Backspace) : Type(text);
}

void WindowTest::FillTable() {
    Play("txtInputB=300 txtInputA=500 Return | table: " + FilledTable);
}

std::string WindowTest::Row(int row) const {
    return Joined(Find<MSFlexGrid>("grdMinorCalc"), row);
}

std::string WindowTest::Table() const {
    std::string table;
    for (int row = 0; row < 5; ++row) {
        table += (table.empty() || Row(row).empty() ? "" : ", ") + Row(row);
    }
    return table;
}

std::string WindowTest::RoundDuct() const {
    return Joined(Find<MSFlexGrid>("grdOtherShapes"), 0);
}

bool WindowTest::IsBlank() const {
    for (int i = 0; i < 5; ++i) {
        if (Find<Label>("lblRatio(" + std::to_string(i) + ")").IsOpaque()) {
            return false;
        }
    }
    return Table().empty() && RoundDuct().empty();
}

std::string WindowTest::BasisTexts() const {
    std::string texts;
    for (const char* index : {"0", "1", "2", "3", "4", "9"}) {
        texts += Text("txtCalcBasis(" + std::string(index) + ")") + " ";
    }
    return texts;
}

void SolverTest::OpenSolver() {
    Start();
    ChooseFromMenu("mnuFile", "mnuFileMajor");
    m_solver = FindWindow<frmMajorCalc>();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_solver));
    QCoreApplication::processEvents();
    desktop.Log.clear();
}

void SolverTest::DrawRow(const std::string& types) {
    int column = 1;
    Play("#1,3");
    for (const char type : types) {
        Click("optDuct(" + std::to_string(std::string("RFC").find(type)) + ")");
        Play("#" + std::to_string(++column) + ",3");
    }
    Play("#r");
}

void SolverTest::OpenSheet(const std::string& types) {
    OpenSolver();
    DrawRow(types);
    Click("chkParam");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Sheet()));
}

void SolverTest::EnterBox(int box, const std::string& text) const {
    Enter("txtParam(" + std::to_string(box) + ")", text);
    EXPECT_TRUE(SheetBox(box).Text() == text || SheetBox(box).isReadOnly());
}

} // namespace plenair

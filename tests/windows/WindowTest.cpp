#include "windows/WindowTest.h"

#include "core/SettingsFile.h"
#include "core/start/Main.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
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

} // namespace

void Press(int key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(ActiveWindow(), static_cast<Qt::Key>(key), modifiers);
}

void Type(const char* text) {
    for (; *text != '\0'; ++text) {
        QTest::keyClick(ActiveWindow(), *text);
    }
}

void ClickOn(QWidget* control) {
    if (!control->visibleRegion().contains(control->rect().center())) {
        ADD_FAILURE() << control->objectName().toStdString() << " can't be seen";
        return;
    }
    QTest::mouseClick(control->window()->windowHandle(), Qt::LeftButton, {},
                      control->mapTo(control->window(), control->rect().center()));
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

WindowTest::~WindowTest() {
    Unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
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

frmMinorCalc& WindowTest::Window() const {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* lite = qobject_cast<frmMinorCalc*>(window)) {
            return *lite;
        }
    }
    throw std::runtime_error("no Lite window");
}

void WindowTest::ChooseFromMenu(const std::string& menu, const std::string& entry) const {
    QMenu& opened = Find<QMenu>(menu);
    QMenuBar* const bar = Window().MenuBar();
    QTest::mouseClick(Window().windowHandle(), Qt::LeftButton, {},
                      bar->mapTo(&Window(), bar->actionGeometry(opened.menuAction()).center()));
    QTest::mouseClick(opened.windowHandle(), Qt::LeftButton, {},
                      opened.actionGeometry(&Find<QAction>(entry)).center());
}

void WindowTest::Enter(const std::string& box, const char* text) const {
    Click(box);
    Box(box).SelectAll();
    *text == '\0' ? Press(Qt::Key_Backspace) : Type(text);
}

void WindowTest::FillTable() const {
    Enter("txtInputB", "300");
    Enter("txtInputA", "500");
    Press(Qt::Key_Return);
    EXPECT_EQ(Table(), FilledTable);
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

testing::AssertionResult WindowTest::HasFocusSelected(const std::string& box) const {
    const bool selected = Focused() == box && Box(box).selectedText() == Box(box).text();
    return testing::AssertionResult(selected)
           << "the focus is in " << Focused() << ", selected is " << Box(box).selectedText().toStdString();
}

} // namespace plenair

#include "windows/WindowTest.h"

#include "core/Main.h"
#include "core/SettingsFile.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QWindow>

namespace plenair {

namespace {

QWindow* ActiveWindow() {
    QWidget* const popup = QApplication::activePopupWidget();
    QWidget* const window = popup != nullptr ? popup : QApplication::activeWindow();
    if (window == nullptr) {
        throw std::runtime_error("no active window");
    }
    return window->windowHandle();
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

void ClickOn(QMenu* menu, const char* entry) {
    for (QAction* action : menu->actions()) {
        if (action->objectName() == entry) {
            QTest::mouseClick(menu->windowHandle(), Qt::LeftButton, {},
                              menu->actionGeometry(action).center());
            return;
        }
    }
    throw std::runtime_error("no menu entry " + std::string(entry));
}

QColor ColourAt(const QWidget& control, const QPoint& point) {
    const QImage image = control.window()->grab().toImage();
    const QPointF middle = QPointF(control.mapTo(control.window(), point)) + QPointF(0.5, 0.5);
    return image.pixelColor((middle * image.devicePixelRatio() - QPointF(0.5, 0.5)).toPoint());
}

std::string Focused() {
    QWidget* const focus = QApplication::focusWidget();
    return focus != nullptr ? focus->objectName().toStdString() : "nothing";
}

WindowTest::WindowTest() {
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
    ClickOn(&opened, entry.c_str());
}

void WindowTest::Enter(const std::string& box, const char* text) const {
    if (Focused() == box) {
        Box(box).SelectAll();
    } else {
        Click(box);
    }
    if (*text == '\0') {
        Press(Qt::Key_Backspace);
    }
    Type(text);
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

testing::AssertionResult WindowTest::HasFocusSelected(const std::string& box) const {
    if (Focused() != box) {
        return testing::AssertionFailure() << "the focus is in " << Focused();
    }
    if (Box(box).selectedText() != Box(box).text()) {
        return testing::AssertionFailure() << "selected is " << Box(box).selectedText().toStdString();
    }
    return testing::AssertionSuccess();
}

} // namespace plenair

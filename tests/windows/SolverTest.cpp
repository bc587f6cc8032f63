#include "windows/SolverTest.h"

#include "core/start/Main.h"

#include <QApplication>

namespace plenair {

void SolverTest::OpenSolver() {
    Start();
    ChooseFromMenu("mnuFile", "mnuFileMajor");
    for (QWidget* window : QApplication::topLevelWidgets()) {
        m_solver = m_solver != nullptr ? m_solver.data() : qobject_cast<frmMajorCalc*>(window);
        m_sheet = m_sheet != nullptr ? m_sheet.data() : qobject_cast<frmMajorParam*>(window);
    }
    ASSERT_TRUE(m_solver != nullptr && m_sheet != nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_solver));
    QCoreApplication::processEvents();
    desktop.Log.clear();
}

void SolverTest::EndProgram() {
    Unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void SolverTest::ClickAt(const QWidget& control, QPoint place, Qt::MouseButton button) const {
    QWidget* const window = control.window();
    const QPoint inWindow = control.mapTo(window, place);
    QTest::mousePress(window->windowHandle(), button, {}, inWindow);
    if (!window->isActiveWindow()) {
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    }
    QTest::mouseRelease(window->windowHandle(), button, {}, inWindow);
}

void SolverTest::ClickGrid(int column, int row, Qt::MouseButton button) const {
    const auto& grid = Get<PictureBox>("picGrid");
    ClickAt(grid, {column * grid.width() / kCellsAcross + 3, row * grid.height() / kCellsDown + 4}, button);
}

void SolverTest::DrawRow(const std::string& types) const {
    int column = 1;
    ClickGrid(column, 3);
    for (const char type : types) {
        ClickOn("optDuct(" + std::to_string(std::string("RFC").find(type)) + ")");
        ClickGrid(++column, 3);
    }
    ClickGrid(1, 1, Qt::RightButton);
}

void SolverTest::OpenSheet(const std::string& types) {
    OpenSolver();
    DrawRow(types);
    ClickOn("chkParam");
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_sheet));
}

TextBox& SolverTest::SheetBox(int box) const {
    return Get<TextBox>("txtParam(" + std::to_string(box) + ")");
}

void SolverTest::EnterBox(int box, const char* text) const {
    ClickOn("txtParam(" + std::to_string(box) + ")");
    SheetBox(box).SelectAll();
    Press(Qt::Key_Backspace);
    Type(text);
}

std::string SolverTest::SheetTexts() const {
    std::string texts = SheetBox(1).Text();
    for (int box = 2; box <= 8; ++box) {
        texts += " " + SheetBox(box).Text();
    }
    return texts;
}

std::string SolverTest::SheetLooks() const {
    std::string looks;
    for (int box = 1; box <= 8; ++box) {
        const bool white = SheetBox(box).palette().color(QPalette::Base) == Qt::white;
        const bool locked = SheetBox(box).isReadOnly();
        looks += white ? (locked ? 'L' : 'o') : (locked ? 'l' : '!');
    }
    return looks;
}

std::string SolverTest::DuctNo() const {
    const auto& label = Get<Label>("lblDuctNo");
    return (label.text() + " " + label.palette().color(QPalette::WindowText).name()).toStdString();
}

std::string SolverTest::ColourAt(const QImage& image, int x, int y) {
    return image.pixelColor(x, y).name().toStdString();
}

} // namespace plenair

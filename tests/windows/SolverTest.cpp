#include "windows/SolverTest.h"

#include "core/Main.h"

#include <QApplication>
#include <QStyle>
#include <QStyleOptionSlider>

namespace plenair {

namespace {

constexpr int kTwipsPerPixel = 15;

template <typename Window>
Window* FindWindow() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* found = qobject_cast<Window*>(window)) {
            return found;
        }
    }
    return nullptr;
}

} // namespace

void SolverTest::OpenSolver() {
    Start();
    ChooseFromMenu("mnuFile", "mnuFileMajor");
    m_solver = FindWindow<frmMajorCalc>();
    m_sheet = FindWindow<frmMajorParam>();
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

void SolverTest::ClickOn(const std::string& name) const {
    ClickAt(Get(name), Get(name).rect().center());
}

void SolverTest::ClickGrid(int column, int row, Qt::MouseButton button) const {
    const auto& grid = Get<PictureBox>("picGrid");
    const double across = Solver().GridWidth() / CellsAcross / kTwipsPerPixel;
    const double down = m_solver->PicGrid().Height() / CellsDown / kTwipsPerPixel;
    const QPoint place(static_cast<int>(column * across) + 3, static_cast<int>(row * down) + 4);
    ClickAt(grid, place, button);
}

void SolverTest::DrawRow(int row, const std::string& types) const {
    int column = 1;
    ClickGrid(column, row);
    for (const char type : types) {
        ClickOn(FromQt(ArrayName("optDuct", type == 'R' ? 0 : type == 'F' ? 1 : 2)));
        ClickGrid(++column, row);
    }
    ClickGrid(1, 1, Qt::RightButton);
}

void SolverTest::ShowSheet() const {
    ClickOn("chkParam");
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_sheet));
}

TextBox& SolverTest::SheetBox(int box) const {
    return Get<TextBox>(FromQt(ArrayName("txtParam", box)));
}

void SolverTest::EnterBox(int box, const char* text) const {
    if (SheetBox(box).hasFocus()) {
        SheetBox(box).SelectAll();
    } else {
        ClickOn(FromQt(SheetBox(box).objectName()));
    }
    if (*text == '\0') {
        Press(Qt::Key_Backspace);
    }
    Type(text);
}

std::string SolverTest::SheetTexts() const {
    std::string texts;
    for (int box = 1; box <= SheetBoxes; ++box) {
        texts += box == 1 ? "" : " ";
        texts += SheetBox(box).Text();
    }
    return texts;
}

std::string SolverTest::SheetLooks() const {
    std::string looks;
    for (int box = 1; box <= SheetBoxes; ++box) {
        const bool white = SheetBox(box).palette().color(QPalette::Base) == Qt::white;
        const bool locked = SheetBox(box).isReadOnly();
        looks += white ? (locked ? 'L' : 'o') : (locked ? 'l' : '!');
    }
    return looks;
}

void SolverTest::ClickScrollBar(QStyle::SubControl part) const {
    auto& bar = Get<ScrollBar>("scrDuctNo");
    QStyleOptionSlider option;
    option.initFrom(&bar);
    option.orientation = Qt::Horizontal;
    option.minimum = bar.minimum();
    option.maximum = bar.maximum();
    option.sliderPosition = bar.value();
    option.pageStep = bar.pageStep();
    const QRect arrow = bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, part, &bar);
    ClickAt(bar, arrow.center());
}

void SolverTest::ScrollOn() const {
    ClickScrollBar(QStyle::SC_ScrollBarAddLine);
}

void SolverTest::ScrollBack() const {
    ClickScrollBar(QStyle::SC_ScrollBarSubLine);
}

std::string SolverTest::DuctNo() const {
    const auto& label = Get<Label>("lblDuctNo");
    return FromQt(label.text() + " " + label.palette().color(QPalette::WindowText).name());
}

QImage SolverTest::Grid() const {
    return Get<PictureBox>("picGrid").grab().toImage();
}

std::string SolverTest::ColourAt(const QImage& image, int x, int y) {
    return image.pixelColor(x, y).name().toStdString();
}

} // namespace plenair

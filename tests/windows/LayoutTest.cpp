#include "core/windows/frmInputs.h"
#include "extras/windows/frmAbout.h"
#include "platform/qt/FormFont.h"
#include "platform/qt/Twips.h"
#include "windows/WindowTest.h"

#include <QAction>
#include <QMenu>
#include <QRegularExpression>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionFrame>

namespace {

class Layout : public WindowTest, public testing::WithParamInterface<double> {
  protected:
    Layout() { SetFormScale(GetParam()); }
    ~Layout() override { SetFormScale(1); }
    void SetUp() override { Start(); }

    // A text of the control fits into the room there, with some pixels to spare across.
    void ExpectFits(const QWidget& control, QString text, QSize room, int spare = 0) {
        const QFontMetrics font = control.fontMetrics();
        const std::string name = control.objectName().toStdString();
        EXPECT_LE(font.horizontalAdvance(text.remove('&')) + spare, room.width()) << name;
        const bool isButton = qobject_cast<const Button*>(&control) != nullptr;
        EXPECT_TRUE(text.isEmpty() || (isButton ? font.ascent() + 2 : font.height()) <= room.height())
            << name;
        ++m_seen;
    }

    int m_seen = 0;
};

INSTANTIATE_TEST_SUITE_P(AsDrawnAndFor16Points, Layout, testing::Values(1.0, 16 / 8.25));

TEST_P(Layout, EveryTextFitsItsControl) {
    Unfold();
    const QStyle& style = *Window().style();
    for (const char* basis : {"optCalcBasis(3)", "optCalcBasis(0)"}) { // both captions of lblInputA
        Click(basis);
        for (const Label* label : Window().findChildren<Label*>()) {
            ExpectFits(*label, label->text(), label->size());
        }
    }
    for (const Option* option : Window().findChildren<Option*>()) {
        QStyleOptionButton how;
        how.initFrom(option);
        how.text = option->text();
        ExpectFits(*option, option->text(),
                   style.subElementRect(QStyle::SE_RadioButtonContents, &how, option).size());
    }
    for (const Button* button : Window().findChildren<Button*>()) {
        ExpectFits(*button, button->text(), button->size(), 4);
    }
    for (TextBox* box : Window().findChildren<TextBox*>()) {
        QStyleOptionFrame how;
        how.initFrom(box);
        how.lineWidth = style.pixelMetric(QStyle::PM_DefaultFrameWidth, &how, box);
        ExpectFits(*box, "1234.5", style.subElementRect(QStyle::SE_LineEditContents, &how, box).size(), 4);
        EXPECT_TRUE(box->objectName().startsWith("txtInput") || !box->accessibleName().isEmpty());
    }
    for (const char* name : {"grdMinorCalc", "grdOtherShapes"}) {
        const auto& grid = Find<MSFlexGrid>(name);
        for (int column = 0; column < 4; ++column) {
            const double width = ToPixelsX(grid.ColWidth(column));
            ExpectFits(grid, "62825", QSize(static_cast<int>(width), ToPixelsY(240)), 3);
        }
    }
    EXPECT_EQ(m_seen, 2 * 9 + 5 + 6 + 8 + 2 * 4);
}

// A window, its controls in the order of their making and its menus: name, place and size in pixels, font,
// how it takes the focus, its texts, and whether it can be seen. One to a line.
std::string Described(QWidget& window) {
    std::ostringstream all;
    const auto write = [&](const QVariant& text) {
        const std::string words = text.toString().replace('\n', '/').toStdString();
        all << (words.empty() ? "" : " ") << words;
    };
    all << window.objectName().toStdString() << std::hex << ' ' << int(window.windowFlags()) << std::dec;
    write(window.windowTitle());
    all << '\n';
    for (const QWidget* control :
         window.findChildren<QWidget*>(QRegularExpression("^(?!qt_|mnu)[a-z]+[A-Z]"))) {
        const QRect place = control->geometry();
        const QFont font = control->font();
        all << control->objectName().toStdString() << ' ' << place.x() << ',' << place.y() << ' '
            << place.width() << 'x' << place.height() << ' ' << font.pointSizeF() << (font.bold() ? "b" : "")
            << (font.italic() ? "i" : "") << ' ' << control->focusPolicy()
            << (control->isEnabled() ? "" : "-") << (control->isVisibleTo(&window) ? "" : " hidden");
        for (const char* text :
             {"text", "toolTip", "accessibleName", "alignment", "maxLength", "minimum", "maximum"}) {
            write(control->property(text));
        }
        all << '\n';
    }
    for (const QMenu* menu : window.findChildren<QMenu*>()) {
        EXPECT_TRUE(menu->font() == window.font()) << menu->objectName().toStdString();
    }
    for (const QAction* action : window.findChildren<QAction*>(QRegularExpression("^mnu"))) {
        all << action->objectName().toStdString() << (action->isEnabled() ? "" : "-")
            << (action->isCheckable() ? "+" : "");
        write(action->text());
        write(action->shortcut().toString());
        all << '\n';
    }
    return all.str();
}

class Windows : public SolverTest {};

TEST_F(Windows, StandAsInTheTable) {
    OpenSolver();
    std::string all = Described(Window()) + Described(Solver()) + Described(Sheet());
    frmInputs options;
    frmAbout about;
    all += Described(options) + Described(about);
    const std::string& folder = m_environment.Folder().Path();
    all.replace(all.find(folder), folder.size(), "FOLDER");
    const std::string table = PLENAIR_SOURCES "/windows/layout.txt";
    if (qEnvironmentVariableIsSet("PLENAIR_WRITE_LAYOUT")) {
        WriteFile(table, all);
    }
    std::istringstream seen(all);
    std::istringstream expected(ReadFile(table));
    for (std::string line, wanted; std::getline(expected, wanted);) {
        std::getline(seen, line);
        EXPECT_EQ(line, wanted);
    }
    EXPECT_EQ(seen.peek(), EOF);
}

TEST(FormScale, LargeLettersEnlargeTheFormsAsFarAsTheScreenGoes) {
    const std::tuple<double, double, double, double> rows[] = {
        {8, 28800, 16200, 1},          {9, 28800, 16200, 1},
        {11, 28800, 16200, 1},         {16, 28800, 16200, 16 / 8.25},
        {12, 28800, 16200, 12 / 8.25}, {16, 13950, 16200, 1.5},
        {16, 28800, 10350, 1.5},       {16, 9000, 6000, 1}};
    for (const auto& [points, width, height, scale] : rows) {
        EXPECT_DOUBLE_EQ(FormScaleFor(points, width, height), scale) << points << " on " << width;
    }
}

} // namespace

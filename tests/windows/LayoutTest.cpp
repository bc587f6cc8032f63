#include "core/windows/frmInputs.h"
#include "extras/windows/frmAbout.h"
#include "platform/qt/FormFont.h"
#include "platform/qt/Twips.h"
#include "windows/WindowTest.h"

#include <QAction>
#include <QMenu>
#include <QRadioButton>
#include <QRegularExpression>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionFrame>

namespace {

class Layout : public SolverTest, public testing::WithParamInterface<double> {
  protected:
    Layout() { SetFormScale(GetParam()); }
    ~Layout() override { SetFormScale(1); }

    // The room for the text of a control.
    static QSize RoomIn(const QWidget& control) {
        const QStyle& style = *control.style();
        if (qobject_cast<const QRadioButton*>(&control) != nullptr) {
            QStyleOptionButton how;
            how.initFrom(&control);
            return style.subElementRect(QStyle::SE_RadioButtonContents, &how, &control).size();
        }
        if (qobject_cast<const TextBox*>(&control) != nullptr) {
            QStyleOptionFrame how;
            how.initFrom(&control);
            how.lineWidth = style.pixelMetric(QStyle::PM_DefaultFrameWidth, &how, &control);
            return style.subElementRect(QStyle::SE_LineEditContents, &how, &control).size();
        }
        return control.size();
    }
};

INSTANTIATE_TEST_SUITE_P(AsDrawnAndFor16Points, Layout, testing::Values(1.0, 16 / 8.25));

TEST_P(Layout, EveryTextFitsItsControl) {
    OpenSolver();
    int seen = 0;
    for (QWidget* window : {static_cast<QWidget*>(&Window()), static_cast<QWidget*>(&Solver()),
                            static_cast<QWidget*>(&Sheet())}) {
        for (QWidget* control : window->findChildren<QWidget*>()) {
            const auto* box = qobject_cast<TextBox*>(control);
            const auto* button = qobject_cast<Button*>(control);
            const QString text = box != nullptr ? "1234.5" : control->property("text").toString().remove('&');
            const QFontMetrics font = control->fontMetrics();
            const int spare = box != nullptr || button != nullptr ? 4 : 0;
            const QSize needed(font.horizontalAdvance(text) + spare,
                               button != nullptr ? font.ascent() + 2 : font.height());
            const QSize room = RoomIn(*control);
            if (!text.isEmpty()) {
                EXPECT_EQ(needed.boundedTo(room), needed) << control->objectName().toStdString();
                ++seen;
            }
        }
    }
    EXPECT_EQ(seen, 45);
    const auto& grid = Find<MSFlexGrid>("grdMinorCalc");
    EXPECT_LE(grid.fontMetrics().horizontalAdvance("62825") + 3, ToPixelsX(grid.ColWidth(0)));
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

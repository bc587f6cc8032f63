#include "windows/WindowTest.h"

#include "platform/qt/Twips.h"

#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionFrame>

namespace plenair {
namespace {

class Layout : public WindowTest {
  protected:
    void SetUp() override { Start(); }
};

int TextWidth(const QWidget& control, QString text) {
    return control.fontMetrics().horizontalAdvance(text.remove('&'));
}

TEST_F(Layout, EveryTextFitsItsControl) {
    Click("cmdMoreInfo");
    const QStyle& style = *Window().style();
    int seen = 0;
    for (const char* basis : {"optCalcBasis(3)", "optCalcBasis(0)"}) { // both captions of lblInputA
        Click(basis);
        for (const Label* label : Window().findChildren<Label*>()) {
            SCOPED_TRACE(label->objectName().toStdString());
            EXPECT_LE(TextWidth(*label, label->text()), label->width());
            EXPECT_TRUE(label->text().isEmpty() || label->fontMetrics().height() <= label->height());
            ++seen;
        }
    }
    for (const Option* option : Window().findChildren<Option*>()) {
        SCOPED_TRACE(option->objectName().toStdString());
        QStyleOptionButton how;
        how.initFrom(option);
        how.text = option->text();
        const QRect room = style.subElementRect(QStyle::SE_RadioButtonContents, &how, option);
        EXPECT_LE(TextWidth(*option, option->text()), room.width());
        EXPECT_LE(option->fontMetrics().height(), room.height());
        ++seen;
    }
    for (const Button* button : Window().findChildren<Button*>()) {
        SCOPED_TRACE(button->objectName().toStdString());
        EXPECT_LE(TextWidth(*button, button->text()) + 4, button->width());
        EXPECT_LE(button->fontMetrics().ascent() + 2, button->height());
        ++seen;
    }
    for (TextBox* box : Window().findChildren<TextBox*>()) {
        SCOPED_TRACE(box->objectName().toStdString());
        QStyleOptionFrame how;
        how.initFrom(box);
        how.lineWidth = style.pixelMetric(QStyle::PM_DefaultFrameWidth, &how, box);
        const QRect room = style.subElementRect(QStyle::SE_LineEditContents, &how, box);
        EXPECT_LE(box->fontMetrics().height(), room.height());
        EXPECT_LE(TextWidth(*box, "1234.5") + 4, room.width());
        ++seen;
    }
    EXPECT_EQ(seen, 2 * 9 + 5 + 6 + 8);
}

TEST_F(Layout, CellsHoldWhatTheyShow) {
    for (const char* name : {"grdMinorCalc", "grdOtherShapes"}) {
        const auto& grid = Find<MSFlexGrid>(name);
        double width = 0;
        for (int column = 0; column < 4; ++column) {
            EXPECT_EQ(grid.ColAlignment(column), 4);
            EXPECT_GE(ToPixelsX(grid.ColWidth(column)) - 3, TextWidth(grid, "62825"));
            width += grid.ColWidth(column);
        }
        EXPECT_EQ(grid.ColWidth(0), std::string(name) == "grdMinorCalc" ? 724 : 754);
        EXPECT_LE(std::abs(ToPixelsX(width) - grid.width()), 1);
    }
    EXPECT_LE(Find<MSFlexGrid>("grdMinorCalc").fontMetrics().height(), ToPixelsY(243));
}

TEST_F(Layout, RowsOfLampsAndButtonsMeetThoseOfTheTable) {
    const QRect table = Find<QWidget>("grdMinorCalc").geometry();
    for (int i = 0; i < 5; ++i) {
        const std::string index = "(" + std::to_string(i) + ")";
        const QRect lamp = Find<QWidget>("lblRatio" + index).geometry();
        const QRect button = Find<QWidget>("cmdLog" + index).geometry();
        const double middle = table.top() + (i + 0.5) * table.height() / 5;
        EXPECT_NEAR(lamp.center().y(), middle, 1.5);
        EXPECT_NEAR(button.center().y(), middle, 1.5);
        EXPECT_LT(button.width(), lamp.width());
    }
    EXPECT_LE(Find<QWidget>("lblRatio(0)").geometry().right(), Window().Client()->width());
}

TEST_F(Layout, EveryControlHasANameToBeRead) {
    for (const QWidget* control : Window().Client()->findChildren<QWidget*>()) {
        EXPECT_FALSE(control->objectName().isEmpty());
        if (qobject_cast<const TextBox*>(control) != nullptr) {
            const bool labelled = control->objectName().startsWith("txtInput");
            EXPECT_TRUE(labelled || !control->accessibleName().isEmpty())
                << control->objectName().toStdString();
        }
    }
}

} // namespace
} // namespace plenair

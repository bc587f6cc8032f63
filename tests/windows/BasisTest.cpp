#include "lite/CalculationLog.h"
#include "windows/WindowTest.h"

#include <QPixmap>

namespace {

class Basis : public WindowTest {
  protected:
    void SetUp() override { Start(); }

    // Where Tab goes from here until it comes back.
    std::string TabOrder() {
        Play("Alt+H");
        std::string order;
        do {
            order += Focused() + " ";
            Play("Tab");
        } while (Focused() != "txtInputB" && order.size() < 200);
        return order;
    }
};

TEST_F(Basis, ASelectionMovesBoxesCaptionAndFocus) {
    Unfold();
    FillTable();
    Play("@optCalcBasis(0) | table: blank; selected: txtCalcBasis(0) 0.8"); // a click on the one that is on
                                                                            // is a click
    const char* const boxes[] = {"txtCalcBasis(0) ", "txtCalcBasis(1) ", "txtCalcBasis(2) txtCalcBasis(9) ",
                                 "txtCalcBasis(3) ", "txtCalcBasis(4) "};
    for (const char basis : {'1', '2', '3', '4'}) {
        const std::string index = "(" + std::string(1, basis) + ")";
        Click("optCalcBasis(0)");
        FillTable();
        Play("@optCalcBasis" + index + " | basis: " + basis + "; table: blank; text lblInputA: " +
             (basis == '3' || basis == '4' ? "&Width (mm)" : "Flow &Rate (L/s)") +
             "; text txtInputA: 500; text txtInputB: 300; selected: txtCalcBasis" + index + " " +
             Text("txtCalcBasis" + index));
        EXPECT_EQ(TabOrder(), std::string("txtInputB txtInputA ") + boxes[basis - '0']);
        std::string enabled;
        for (const std::string box : {"0", "1", "2", "9", "3", "4"}) {
            const std::string name = "txtCalcBasis(" + box + ")";
            enabled += Box(name).isEnabled() ? name + " " : "";
        }
        EXPECT_EQ(enabled, boxes[basis - '0']);
    }
    Play("@optCalcBasis(0) | selected: txtCalcBasis(0) 0.8");
    EXPECT_EQ(TabOrder(), std::string("txtInputB txtInputA ") + boxes[0]);
    Unfold();
    EXPECT_EQ(TabOrder(), "txtInputB txtInputA ");
    Play("Shift+Tab | focus: txtInputA");
}

TEST_F(Basis, AccessKeysSelectReachAndRecord) {
    Play("Alt+R | focus: txtInputA\nAlt+H | focus: txtInputB");
    for (int folded = 0; folded < 2; ++folded) { // also below the edge of the folded window
        Play(R"(Alt+V | basis: 1; focus: txtCalcBasis(1)
            Alt+C | basis: 2; focus: txtCalcBasis(2)
            Alt+P | basis: 0; focus: txtCalcBasis(0)
            Alt+A | basis: 3; focus: txtCalcBasis(3)
            Alt+A | basis: 4; focus: txtCalcBasis(4)
            Alt+V Alt+A | basis: 3; focus: txtCalcBasis(3)
            Alt+R | focus: txtCalcBasis(3)
            Alt+W | focus: txtInputA
            @cmdMoreInfo)");
    }
    Play("Alt+P");
    FillTable();
    std::string recorded;
    Play("Alt+1 @cmdLog(0) Alt+2 @cmdLog(1) Alt+3 @cmdLog(2) Alt+4 @cmdLog(3) Alt+5 @cmdLog(4) | text "
         "txtInputA: 500");
    for (std::int16_t record = 0; record < LogCount; ++record) {
        recorded += ShortestText(LogRows[static_cast<std::size_t>(record)].Height) + " ";
    }
    EXPECT_EQ(recorded, "250 250 275 275 300 300 325 325 350 350 ");
}

TEST_F(Basis, FoldingShowsAndHidesThePanel) {
    const int folded = Window().height();
    for (const char* more : {"@cmdMoreInfo", "Alt+M"}) {
        for (const bool shown : {true, false}) {
            Play(std::string("Alt+H ") + (*more == 'A' && !shown ? "Alt+L" : more) +
                 " | focus: txtInputA; text cmdMoreInfo: " + (shown ? "&Less" : "&More"));
            EXPECT_EQ(Window().height() - folded, shown ? 140 : 0) << "2100 twips";
            for (const char* control : {"lblCalcBasis", "optCalcBasis(4)", "txtCalcBasis(4)"}) {
                const QWidget& panel = Find(control);
                EXPECT_EQ(panel.visibleRegion().boundingRect(), shown ? panel.rect() : QRect()) << control;
            }
        }
    }
    Play("Alt+L | text cmdMoreInfo: &More"); // the caption is another one now
}

TEST_F(Basis, ResultsArePainted) {
    const auto picture = [this](const char* grid) { return Find(grid).grab().toImage(); };
    const QImage blank = picture("grdMinorCalc");
    const QImage blankRound = picture("grdOtherShapes");
    const auto& lamp = Find<Label>("lblRatio(4)");
    const QPoint edge = lamp.mapTo(&Window(), QPoint(lamp.width() - 2, lamp.height() / 2));
    const auto edgeColour = [&] { return Window().grab().toImage().pixelColor(edge); };
    FillTable();
    EXPECT_NE(picture("grdMinorCalc"), blank);
    EXPECT_NE(picture("grdOtherShapes"), blankRound);
    EXPECT_EQ(edgeColour(), QColor(0, 255, 0)) << "the lamp shines beside its button";
    Type("5");
    EXPECT_EQ(picture("grdMinorCalc"), blank);
    EXPECT_NE(edgeColour(), QColor(0, 255, 0));
}

} // namespace

#include "windows/WindowTest.h"

#include "lite/CalculationLog.h"

#include <QPixmap>

namespace plenair {
namespace {

class Basis : public WindowTest {
  protected:
    void SetUp() override { Start(); }

    // Where Tab goes from here until it comes back.
    std::string TabOrder() const {
        Press(Qt::Key_H, Qt::AltModifier);
        std::string order;
        do {
            order += Focused() + " ";
            Press(Qt::Key_Tab);
        } while (Focused() != "txtInputB" && order.size() < 200);
        return order;
    }
};

TEST_F(Basis, ASelectionMovesBoxesCaptionAndFocus) {
    Unfold();
    FillTable();
    Click("optCalcBasis(0)");
    EXPECT_EQ(Focused(), "txtInputA") << "the option that is on does nothing";
    EXPECT_EQ(Table(), FilledTable);
    for (int basis = 1; basis <= 4; ++basis) {
        SCOPED_TRACE(basis);
        FillTable();
        Click("optCalcBasis(" + std::to_string(basis) + ")");
        EXPECT_EQ(Settings.CalcBasis, basis);
        std::string enabled;
        for (const char* index : {"0", "1", "2", "3", "4", "9"}) {
            enabled += Box("txtCalcBasis(" + std::string(index) + ")").isEnabled() ? index : "";
        }
        EXPECT_EQ(enabled, basis == 2 ? "29" : std::to_string(basis));
        EXPECT_EQ(Find<Label>("lblInputA").text(), basis < 3 ? "Flow &Rate (L/s)" : "&Width (mm)");
        EXPECT_TRUE(HasFocusSelected("txtCalcBasis(" + std::to_string(basis) + ")"));
        EXPECT_EQ(Text("txtInputA") + Text("txtInputB"), "500300");
        EXPECT_TRUE(IsBlank()) << "the box blanks them as it gets the focus";
        Click("optCalcBasis(0)");
        EXPECT_TRUE(HasFocusSelected("txtCalcBasis(0)"));
    }
}

TEST_F(Basis, AccessKeysSelectReachAndRecord) {
    const std::pair<int, int> rows[] = {{Qt::Key_V, 1}, {Qt::Key_C, 2}, {Qt::Key_P, 0}, {Qt::Key_A, 3},
                                        {Qt::Key_A, 4}, {Qt::Key_A, 3}, {Qt::Key_V, 1}, {Qt::Key_A, 3}};
    Press(Qt::Key_R, Qt::AltModifier);
    EXPECT_EQ(Focused(), "txtInputA");
    Press(Qt::Key_H, Qt::AltModifier);
    EXPECT_EQ(Focused(), "txtInputB");
    for (const bool unfolded : {false, true}) {
        for (const auto& [key, basis] : rows) {
            Press(key, Qt::AltModifier);
            EXPECT_EQ(Settings.CalcBasis, basis);
            EXPECT_EQ(Focused(), "txtCalcBasis(" + std::to_string(basis) + ")")
                << "also below the edge of the folded window, " << unfolded;
        }
        Press(Qt::Key_R, Qt::AltModifier);
        EXPECT_EQ(Focused(), "txtCalcBasis(3)") << "the caption is another one now";
        Press(Qt::Key_W, Qt::AltModifier);
        EXPECT_EQ(Focused(), "txtInputA");
        Unfold();
    }
    Press(Qt::Key_P, Qt::AltModifier);
    FillTable();
    std::string recorded;
    for (int row = 0; row < 5; ++row) {
        Press(Qt::Key_1 + row, Qt::AltModifier);
        Click("cmdLog(" + std::to_string(row) + ")");
    }
    for (std::int16_t record = 0; record < LogCount; ++record) {
        recorded += std::to_string(int(LogRows[static_cast<std::size_t>(record)].Height)) + " ";
    }
    EXPECT_EQ(recorded, "250 250 275 275 300 300 325 325 350 350 ");
    EXPECT_EQ(Text("txtInputA"), "500") << "Alt+1 types nothing";
}

TEST_F(Basis, FoldingShowsAndHidesThePanel) {
    const int folded = Window().height();
    const auto caption = [this] { return Find<Button>("cmdMoreInfo").text(); };
    EXPECT_EQ(caption(), "&More");
    for (const bool byKey : {false, true}) {
        for (const bool less : {true, false}) {
            Press(Qt::Key_H, Qt::AltModifier);
            byKey ? Press(less ? Qt::Key_M : Qt::Key_L, Qt::AltModifier) : Click("cmdMoreInfo");
            EXPECT_EQ(caption(), less ? "&Less" : "&More");
            EXPECT_EQ(Window().height() - folded, less ? 140 : 0) << "2100 twips";
            EXPECT_EQ(Focused(), "txtInputA");
            for (const char* control : {"lblCalcBasis", "optCalcBasis(4)", "txtCalcBasis(4)"}) {
                const QWidget& panel = Find<QWidget>(control);
                EXPECT_EQ(panel.visibleRegion().boundingRect(), less ? panel.rect() : QRect()) << control;
            }
        }
    }
    Press(Qt::Key_L, Qt::AltModifier);
    EXPECT_EQ(Window().height(), folded) << "the caption is &More";
}

TEST_F(Basis, TabGoesThroughInputsAndTheBoxesOfTheBasis) {
    EXPECT_EQ(TabOrder(), "txtInputB txtInputA ");
    Unfold();
    const char* const boxes[] = {"txtCalcBasis(0) ", "txtCalcBasis(1) ", "txtCalcBasis(2) txtCalcBasis(9) ",
                                 "txtCalcBasis(3) ", "txtCalcBasis(4) "};
    for (int basis = 4; basis >= 0; --basis) {
        Click("optCalcBasis(" + std::to_string(basis) + ")");
        EXPECT_EQ(TabOrder(), std::string("txtInputB txtInputA ") + boxes[basis]);
    }
    Unfold();
    EXPECT_EQ(TabOrder(), "txtInputB txtInputA ");
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Focused(), "txtInputA");
}

TEST_F(Basis, ResultsArePainted) {
    const auto picture = [this](const char* grid) { return Find<QWidget>(grid).grab().toImage(); };
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
} // namespace plenair

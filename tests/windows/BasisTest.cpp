#include "windows/WindowTest.h"

#include <QAbstractButton>
#include <QPixmap>

namespace plenair {
namespace {

class Basis : public WindowTest {
  protected:
    void SetUp() override { Start(); }

    bool CanBeSeen(const std::string& control) const {
        return !Find<QWidget>(control).visibleRegion().isEmpty();
    }

    // Where Tab goes from here until it comes back.
    std::string TabOrder() const {
        Press(Qt::Key_H, Qt::AltModifier);
        std::string order;
        for (int i = 0; i < 12; ++i) {
            order += (order.empty() ? "" : " ") + Focused();
            Press(Qt::Key_Tab);
            if (Focused() == "txtInputB") {
                break;
            }
        }
        return order;
    }
};

TEST_F(Basis, ASelectionMovesBoxesCaptionAndFocus) {
    Enter("txtInputB", "300");
    Enter("txtInputA", "500");
    const struct {
        int basis;
        const char* enabled;
        const char* caption;
    } rows[] = {
        {1, "1", "Flow &Rate (L/s)"},
        {2, "29", "Flow &Rate (L/s)"},
        {3, "3", "&Width (mm)"},
        {4, "4", "&Width (mm)"},
    };
    Unfold();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.basis);
        FillTable();
        Click("optCalcBasis(" + std::to_string(row.basis) + ")");
        EXPECT_EQ(Settings.CalcBasis, row.basis);
        std::string enabled;
        for (const char* index : {"0", "1", "2", "3", "4", "9"}) {
            enabled += Box("txtCalcBasis(" + std::string(index) + ")").isEnabled() ? index : "";
        }
        EXPECT_EQ(enabled, row.enabled);
        EXPECT_EQ(Find<Label>("lblInputA").text(), row.caption);
        EXPECT_TRUE(HasFocusSelected("txtCalcBasis(" + std::to_string(row.basis) + ")"));
        EXPECT_EQ(Text("txtInputA"), "500");
        EXPECT_EQ(Text("txtInputB"), "300");
        EXPECT_TRUE(IsBlank()) << "the box blanks them as it gets the focus";
        Click("optCalcBasis(0)");
        EXPECT_TRUE(HasFocusSelected("txtCalcBasis(0)"));
        EXPECT_EQ(Find<Label>("lblInputA").text(), "Flow &Rate (L/s)");
    }
}

TEST_F(Basis, TheOptionThatIsOnDoesNothing) {
    FillTable();
    Click("cmdMoreInfo");
    Click("optCalcBasis(0)");
    EXPECT_EQ(Focused(), "txtInputA");
    EXPECT_EQ(Table(), FilledTable);
}

TEST_F(Basis, AccessKeysSelect) {
    const struct {
        int key;
        int basis;
    } rows[] = {
        {Qt::Key_V, 1}, {Qt::Key_C, 2}, {Qt::Key_P, 0}, {Qt::Key_A, 3},
        {Qt::Key_A, 4}, {Qt::Key_A, 3}, {Qt::Key_V, 1}, {Qt::Key_A, 3},
    };
    for (const bool unfolded : {false, true}) {
        if (unfolded) {
            Click("cmdMoreInfo");
        }
        for (const auto& row : rows) {
            Press(row.key, Qt::AltModifier);
            EXPECT_EQ(Settings.CalcBasis, row.basis);
            EXPECT_EQ(Focused(), "txtCalcBasis(" + std::to_string(row.basis) + ")")
                << "also below the edge of the folded window";
        }
    }
}

TEST_F(Basis, AccessKeysReachInputsAndButtons) {
    std::string recorded;
    Window().RecordRow = [&](int row) { recorded += std::to_string(row); };
    Press(Qt::Key_R, Qt::AltModifier);
    EXPECT_EQ(Focused(), "txtInputA");
    Press(Qt::Key_H, Qt::AltModifier);
    EXPECT_EQ(Focused(), "txtInputB");
    Press(Qt::Key_A, Qt::AltModifier);
    Press(Qt::Key_R, Qt::AltModifier);
    EXPECT_EQ(Focused(), "txtCalcBasis(3)") << "the caption is another one now";
    Press(Qt::Key_W, Qt::AltModifier);
    EXPECT_EQ(Focused(), "txtInputA");
    for (const int key : {Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4, Qt::Key_5}) {
        Press(key, Qt::AltModifier);
    }
    for (int row = 0; row < 5; ++row) {
        Click("cmdLog(" + std::to_string(row) + ")");
    }
    EXPECT_EQ(recorded, "0123401234");
    EXPECT_EQ(Text("txtInputA"), "") << "Alt+1 types nothing";
}

TEST_F(Basis, FoldingShowsAndHidesThePanel) {
    const int folded = Window().height();
    const auto caption = [this] { return Find<Button>("cmdMoreInfo").text(); };
    const auto press = [](int key) { return [key] { Press(key, Qt::AltModifier); }; };
    const auto click = [this] { Click("cmdMoreInfo"); };
    EXPECT_EQ(caption(), "&More");
    EXPECT_TRUE(CanBeSeen("cmdMoreInfo"));
    const std::pair<std::function<void()>, std::function<void()>> ways[] = {
        {click, click}, {press(Qt::Key_M), press(Qt::Key_L)}, {click, press(Qt::Key_L)}};
    for (const auto& [unfold, fold] : ways) {
        for (const char* control :
             {"lblCalcBasis", "optCalcBasis(0)", "txtCalcBasis(0)", "txtCalcBasis(4)"}) {
            EXPECT_FALSE(CanBeSeen(control)) << control;
        }
        Press(Qt::Key_H, Qt::AltModifier);
        unfold();
        EXPECT_EQ(caption(), "&Less");
        EXPECT_EQ(Window().height() - folded, 140) << "2100 twips";
        EXPECT_EQ(Focused(), "txtInputA");
        for (const char* control : {"lblCalcBasis", "optCalcBasis(4)", "txtCalcBasis(4)"}) {
            EXPECT_EQ(Find<QWidget>(control).visibleRegion().boundingRect(), Find<QWidget>(control).rect())
                << control;
        }
        Press(Qt::Key_H, Qt::AltModifier);
        fold();
        EXPECT_EQ(caption(), "&More");
        EXPECT_EQ(Window().height(), folded);
        EXPECT_EQ(Focused(), "txtInputA");
    }
    Press(Qt::Key_L, Qt::AltModifier);
    EXPECT_EQ(Window().height(), folded) << "the caption is &More";
}

TEST_F(Basis, TabGoesThroughInputsAndTheBoxesOfTheBasis) {
    EXPECT_EQ(TabOrder(), "txtInputB txtInputA");
    Click("cmdMoreInfo");
    const char* const boxes[] = {" txtCalcBasis(0)", " txtCalcBasis(1)", " txtCalcBasis(2) txtCalcBasis(9)",
                                 " txtCalcBasis(3)", " txtCalcBasis(4)"};
    for (int basis = 4; basis >= 0; --basis) {
        Click("optCalcBasis(" + std::to_string(basis) + ")");
        EXPECT_EQ(TabOrder(), std::string("txtInputB txtInputA") + boxes[basis]);
    }
    Click("cmdMoreInfo");
    EXPECT_EQ(TabOrder(), "txtInputB txtInputA");
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Focused(), "txtInputA");
}

TEST_F(Basis, AllBoxesHaveTheirPlaceInTheTabOrder) {
    Click("cmdMoreInfo");
    for (const char* index : {"0", "1", "2", "3", "4", "9"}) {
        Box("txtCalcBasis(" + std::string(index) + ")").setEnabled(true);
    }
    EXPECT_EQ(TabOrder(),
              "txtInputB txtInputA txtCalcBasis(1) txtCalcBasis(2) txtCalcBasis(9) txtCalcBasis(3) "
              "txtCalcBasis(4) txtCalcBasis(0)");
}

TEST_F(Basis, ResultsArePainted) {
    const auto pictures = [this] {
        return std::pair(Find<QWidget>("grdMinorCalc").grab().toImage(),
                         Find<QWidget>("grdOtherShapes").grab().toImage());
    };
    const auto blank = pictures();
    const auto& lamp = Find<Label>("lblRatio(4)");
    const QPoint edge(lamp.width() - 2, lamp.height() / 2);
    EXPECT_NE(ColourAt(lamp, edge), QColor(0, 255, 0));
    FillTable();
    EXPECT_NE(pictures().first, blank.first);
    EXPECT_NE(pictures().second, blank.second);
    EXPECT_EQ(ColourAt(lamp, edge), QColor(0, 255, 0)) << "the lamp shines beside its button";
    Type("5");
    EXPECT_EQ(pictures(), blank);
    EXPECT_NE(ColourAt(lamp, edge), QColor(0, 255, 0));
}

} // namespace
} // namespace plenair

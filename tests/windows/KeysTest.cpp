#include "platform/desktop/Clipboard.h"
#include "windows/WindowTest.h"

namespace {

class Keys : public WindowTest {
  protected:
    void SetUp() override { Start(); }
};

TEST_F(Keys, HeightTabFlowEnterGivesFiveDuctsAndLamps) {
    Type("300"); // the focus starts in the height
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focused(), "txtInputA");
    Type("500");
    Press(Qt::Key_Return);
    EXPECT_EQ(Table(), FilledTable);
    EXPECT_EQ(RoundDuct(), "375 4.53 0.69");
    EXPECT_TRUE(HasFocusSelected("txtInputA"));

    Enter("txtInputB", "100");
    Enter("txtInputA", "300");
    Press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(Table(), "2775 50 3.87 0.59, 1475 75 3.99 0.64, 950 100 4.10 0.68, 700 125 4.11 0.69, "
                       "550 150 4.13 0.69");
    const QColor colours[] = {"#ff0000", "#ff0000", "#ff0000", "#ffae00", "#00ff00"};
    for (int i = 0; i < 5; ++i) {
        const auto& lamp = Find<Label>("lblRatio(" + std::to_string(i) + ")");
        EXPECT_TRUE(lamp.IsOpaque());
        EXPECT_EQ(lamp.BackColour(), colours[i]) << i;
    }
}

TEST_F(Keys, CharactersClearTheResults) {
    const std::vector<int> clearing = {Qt::Key_7, Qt::Key_X, Qt::Key_Space, Qt::Key_Backspace,
                                       Qt::Key_Escape};
    const std::vector<int> others = {Qt::Key_Delete, Qt::Key_Left,  Qt::Key_Right, Qt::Key_Home, Qt::Key_End,
                                     Qt::Key_PageUp, Qt::Key_Shift, Qt::Key_F5,    Qt::Key_Tab};
    for (const char* box : {"txtInputA", "txtInputB"}) {
        for (const auto& [keys, clears] : {std::pair(clearing, true), std::pair(others, false)}) {
            for (const int key : keys) {
                FillTable();
                if (Focused() != box) {
                    Click(box);
                }
                Press(key);
                EXPECT_EQ(IsBlank(), clears) << key << " in " << box;
            }
        }
    }
    FillTable();
    Box("txtInputA").insert("700");
    EXPECT_EQ(Table(), FilledTable) << "a change by the mouse";
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(IsBlank());
}

TEST_F(Keys, EnteringABoxSelectsItsText) {
    FillTable();
    Click("txtInputB");
    EXPECT_TRUE(HasFocusSelected("txtInputB"));
    Press(Qt::Key_End);
    Click("txtInputB");
    EXPECT_EQ(Box("txtInputB").selectedText(), "") << "it was there already";
    Press(Qt::Key_Tab);
    EXPECT_TRUE(HasFocusSelected("txtInputA"));
    Press(Qt::Key_H, Qt::AltModifier);
    EXPECT_TRUE(HasFocusSelected("txtInputB"));
    EXPECT_EQ(Table(), FilledTable);
    Unfold();
    Click("txtCalcBasis(0)");
    EXPECT_TRUE(HasFocusSelected("txtCalcBasis(0)"));
    EXPECT_TRUE(IsBlank());
}

TEST_F(Keys, EnterCalculatesFromEveryBox) {
    Unfold();
    for (const char* box : {"txtInputA", "txtInputB"}) {
        Enter("txtInputA", "500");
        Enter("txtInputB", "300");
        Click(box);
        Press(Qt::Key_Return);
        EXPECT_EQ(Table(), FilledTable);
        EXPECT_TRUE(HasFocusSelected("txtInputA"));
    }
    for (const int basis : {1, 0, 2, 9, 3, 4}) {
        SCOPED_TRACE(basis);
        Click("optCalcBasis(" + std::to_string(basis == 9 ? 2 : basis) + ")");
        Click("txtCalcBasis(" + std::to_string(basis) + ")");
        EXPECT_TRUE(IsBlank());
        Press(Qt::Key_Return);
        EXPECT_EQ(Row(2), basis == 3   ? "500 300 3.54 0.35"
                          : basis == 4 ? "500 300 5.00 0.66"
                                       : "375 300 4.68 0.69");
        EXPECT_TRUE(HasFocusSelected("txtInputA"));
    }
    EXPECT_EQ(Row(3), "( 705 L/s )");
}

TEST_F(Keys, TextsThatAreNoNumbersAreSilent) {
    Unfold();
    m_environment.SetToday(2026, 12, 1); // nor does the reminder come
    for (const char* box : {"txtInputA", "txtInputB", "txtCalcBasis(0)"}) {
        Enter("txtCalcBasis(0)", "0.8");
        Enter("txtInputB", "300");
        Enter("txtInputA", "500");
        Enter(box, "x");
        Press(Qt::Key_Return);
        EXPECT_TRUE(IsBlank());
        EXPECT_TRUE(HasFocusSelected("txtInputA"));
    }
    EXPECT_EQ(Settings.MaxLPM, 0.8) << "what is no number leaves it";
}

TEST_F(Keys, UpAndDownStepTheHeight) {
    FillTable();
    Press(Qt::Key_Down);
    EXPECT_EQ(Text("txtInputB"), "325");
    EXPECT_EQ(Row(2), "350 325 4.61 0.67");
    EXPECT_TRUE(HasFocusSelected("txtInputB"));
    Press(Qt::Key_Up);
    EXPECT_EQ(Text("txtInputB"), "300");
    EXPECT_EQ(Table(), FilledTable);
}

TEST_F(Keys, CopyOfTheResults) {
    std::string copied;
    Desktop().Copy = [&](const ClipboardContent& content) { copied = TabSeparated(content.Table); };
    Start();
    FillTable();
    Press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Table(), FilledTable) << "no character for the box";
    const std::string first = "Shape\tWidth (mm)\tHeight (mm)\tDiameter (mm)\tVelocity (m/s)\tLoss (Pa/m)\n"
                              "Rectangular\t450\t250\t\t4.74\t0.72\n";
    EXPECT_EQ(copied.substr(0, first.size()), first);
    EXPECT_TRUE(copied.ends_with("\nRound\t\t\t375\t4.53\t0.69\n"));
    copied.clear();
    Type("1");
    Press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(copied, "") << "there is nothing to copy";
}

} // namespace

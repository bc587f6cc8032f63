#include "windows/WindowTest.h"

#include "platform/NumberText.h"

#include <QApplication>
#include <QKeyEvent>

namespace plenair {
namespace {

class Keys : public WindowTest {
  protected:
    void SetUp() override { Start(); }
};

TEST_F(Keys, FlowTabHeightEnterGivesFiveDucts) {
    // The focus starts in the height.
    Type("300");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focused(), "txtInputA");
    Type("500");
    Press(Qt::Key_Return);
    EXPECT_EQ(Table(), FilledTable);
    EXPECT_EQ(RoundDuct(), "375 4.53 0.69");
    for (int i = 0; i < 5; ++i) {
        const auto& lamp = Find<Label>("lblRatio(" + std::to_string(i) + ")");
        EXPECT_TRUE(lamp.IsOpaque());
        EXPECT_EQ(lamp.BackColour(), QColor(0, 255, 0));
    }
    EXPECT_TRUE(HasFocusSelected("txtInputA"));
}

TEST_F(Keys, LampsShowHowSlenderADuctIs) {
    Enter("txtInputB", "100");
    Enter("txtInputA", "300");
    Press(Qt::Key_Enter, Qt::KeypadModifier);
    const std::pair<const char*, QColor> rows[] = {{"2775 50 3.87 0.59", {255, 0, 0}},
                                                   {"1475 75 3.99 0.64", {255, 0, 0}},
                                                   {"950 100 4.10 0.68", {255, 0, 0}},
                                                   {"700 125 4.11 0.69", {255, 174, 0}},
                                                   {"550 150 4.13 0.69", {0, 255, 0}}};
    for (int i = 0; i < 5; ++i) {
        const auto& [text, colour] = rows[i];
        EXPECT_EQ(Row(i), text);
        EXPECT_EQ(Find<Label>("lblRatio(" + std::to_string(i) + ")").BackColour(), colour) << i;
    }
}

TEST_F(Keys, CharactersClearTheResults) {
    const struct {
        const char* name;
        int key;
        Qt::KeyboardModifiers modifiers;
        bool clears;
    } rows[] = {
        {"digit", Qt::Key_7, Qt::NoModifier, true},
        {"letter", Qt::Key_X, Qt::NoModifier, true},
        {"space", Qt::Key_Space, Qt::NoModifier, true},
        {"Backspace", Qt::Key_Backspace, Qt::NoModifier, true},
        {"Escape", Qt::Key_Escape, Qt::NoModifier, true},
        {"Ctrl+C", Qt::Key_C, Qt::ControlModifier, true},
        {"Delete", Qt::Key_Delete, Qt::NoModifier, false},
        {"Left", Qt::Key_Left, Qt::NoModifier, false},
        {"Right", Qt::Key_Right, Qt::ShiftModifier, false},
        {"Home", Qt::Key_Home, Qt::NoModifier, false},
        {"End", Qt::Key_End, Qt::NoModifier, false},
        {"Insert", Qt::Key_Insert, Qt::NoModifier, false},
        {"Page Up", Qt::Key_PageUp, Qt::NoModifier, false},
        {"Shift", Qt::Key_Shift, Qt::NoModifier, false},
        {"F5", Qt::Key_F5, Qt::NoModifier, false},
        {"Tab", Qt::Key_Tab, Qt::NoModifier, false},
    };
    for (const char* box : {"txtInputA", "txtInputB"}) {
        for (const auto& row : rows) {
            SCOPED_TRACE(testing::Message() << row.name << " in " << box);
            FillTable();
            if (Focused() != box) {
                Click(box);
            }
            ASSERT_EQ(Table(), FilledTable);
            Press(row.key, row.modifiers);
            EXPECT_EQ(IsBlank(), row.clears);
            if (!row.clears) {
                EXPECT_EQ(Table(), FilledTable);
            }
        }
    }
}

TEST_F(Keys, AChangeByTheMouseClearsNothing) {
    FillTable();
    Box("txtInputA").insert("700");
    EXPECT_EQ(Text("txtInputA"), "700");
    EXPECT_EQ(Table(), FilledTable);
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
    Press(Qt::Key_End);
    Press(Qt::Key_H, Qt::AltModifier);
    EXPECT_TRUE(HasFocusSelected("txtInputB"));
    EXPECT_EQ(Table(), FilledTable);
    Unfold();
    for (const char* basis : {"txtCalcBasis(0)", "txtInputA", "txtCalcBasis(0)"}) {
        Click(basis);
        EXPECT_TRUE(HasFocusSelected(basis));
        EXPECT_TRUE(IsBlank());
    }
}

TEST_F(Keys, EnterCalculatesFromEveryBox) {
    Unfold();
    for (const char* box : {"txtInputA", "txtInputB", "txtCalcBasis(0)"}) {
        for (const int key : {int{Qt::Key_Return}, int{Qt::Key_Enter}}) {
            SCOPED_TRACE(testing::Message() << box << ", " << key);
            Enter("txtInputA", "500");
            Enter("txtInputB", "300");
            Click(box);
            Press(key);
            EXPECT_EQ(Table(), FilledTable);
            EXPECT_TRUE(HasFocusSelected("txtInputA"));
        }
    }
    for (const int basis : {1, 2, 9, 3, 4}) {
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
    const struct {
        const char* name;
        const char* box;
        const char* text;
    } rows[] = {
        {"flow empty", "txtInputA", ""},
        {"flow a letter", "txtInputA", "5x"},
        {"flow hexadecimal", "txtInputA", "0x1f"},
        {"height empty", "txtInputB", ""},
        {"height infinite", "txtInputB", "inf"},
        {"flow too large", "txtInputA", "1e999"},
        {"group mark misplaced", "txtInputA", "5,00"},
        {"basis empty", "txtCalcBasis(0)", ""},
        {"basis no number", "txtCalcBasis(0)", "nan"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Enter("txtCalcBasis(0)", "0.8");
        FillTable();
        Enter(row.box, row.text);
        EXPECT_TRUE(IsBlank());
        Press(Qt::Key_Return);
        EXPECT_TRUE(IsBlank());
        EXPECT_TRUE(HasFocusSelected("txtInputA"));
    }
}

TEST_F(Keys, AnEmptiedBasisBoxKeepsItsNumber) {
    Unfold();
    Enter("txtCalcBasis(0)", "1.5");
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_Delete);
    EXPECT_EQ(Text("txtCalcBasis(0)"), "");
    EXPECT_EQ(Settings.MaxLPM, 1.5);
}

TEST_F(Keys, AnyChangeOfABasisBoxClearsTheResults) {
    for (const int basis : {0, 1, 2, 9, 3, 4}) {
        SCOPED_TRACE(basis);
        const std::string box = "txtCalcBasis(" + std::to_string(basis) + ")";
        FillTable();
        const std::string text = Text(box);
        Box(box).SetText(text);
        EXPECT_FALSE(IsBlank()) << "no change";
        Box(box).SetText("7");
        EXPECT_TRUE(IsBlank());
        EXPECT_EQ(Settings.MaxLPM == 7, basis == 0);
        EXPECT_EQ(Settings.MaxVelocity == 7, basis == 1);
        Box(box).SetText(text);
    }
    EXPECT_EQ(Settings.Analysis, 500);
}

TEST_F(Keys, BlanksAndGroupMarksAreNumbers) {
    Enter("txtInputB", " 300");
    Enter("txtInputA", " 1,000 ");
    Press(Qt::Key_Return);
    EXPECT_EQ(Row(2), "625 300 5.75 0.75");
}

TEST_F(Keys, UpAndDownStepTheHeight) {
    FillTable();
    Press(Qt::Key_Down);
    EXPECT_EQ(Text("txtInputB"), "325");
    EXPECT_EQ(Row(2), "350 325 4.61 0.67");
    EXPECT_TRUE(HasFocusSelected("txtInputB"));
    Press(Qt::Key_Down);
    EXPECT_EQ(Text("txtInputB"), "350");
    EXPECT_EQ(Focused(), "txtInputB");
    Press(Qt::Key_Up);
    Press(Qt::Key_Up);
    EXPECT_EQ(Text("txtInputB"), "300");
    EXPECT_EQ(Table(), FilledTable);
}

TEST_F(Keys, AHeldDownKeyStepsOnceAtItsRelease) {
    FillTable();
    QWidget* const box = QApplication::focusWidget();
    const auto send = [box](QEvent::Type type, bool repeated) {
        QKeyEvent event(type, Qt::Key_Down, Qt::NoModifier, QString(), repeated);
        QApplication::sendEvent(box, &event);
    };
    send(QEvent::KeyPress, false);
    for (int i = 0; i < 5; ++i) {
        send(QEvent::KeyRelease, true);
        send(QEvent::KeyPress, true);
    }
    EXPECT_EQ(Text("txtInputB"), "300");
    send(QEvent::KeyRelease, false);
    EXPECT_EQ(Text("txtInputB"), "325");
    EXPECT_EQ(Row(2), "350 325 4.61 0.67");
}

TEST_F(Keys, StepsWithoutResults) {
    Unfold();
    Enter("txtInputB", "300");
    Enter("txtInputA", "500");
    Press(Qt::Key_Up);
    EXPECT_EQ(Text("txtInputB"), "");
    EXPECT_EQ(Focused(), "txtInputB");
    EXPECT_TRUE(IsBlank());
    for (const int basis : {3, 4}) {
        Click("optCalcBasis(" + std::to_string(basis) + ")");
        Enter("txtInputB", "300");
        Enter("txtInputA", "500");
        Press(Qt::Key_Return);
        const std::string shown = Table();
        Press(Qt::Key_Up);
        Press(Qt::Key_Down);
        EXPECT_EQ(Text("txtInputB"), "300");
        EXPECT_EQ(Focused(), "txtInputA");
        EXPECT_EQ(Table(), shown);
    }
}

TEST_F(Keys, StepsIntoAFailureKeepTheOlderResults) {
    Enter("txtInputB", "60");
    Enter("txtInputA", "500");
    Press(Qt::Key_Return);
    const std::string shown = Table();
    EXPECT_EQ(shown.substr(0, 8), "62825 10");
    Press(Qt::Key_Up);
    EXPECT_EQ(Text("txtInputB"), "35");
    EXPECT_EQ(Table(), shown) << "the heights would begin below 0";
}

TEST_F(Keys, ADecimalComma) {
    Unfold();
    SetNumberLocale({.decimalMark = ",", .groupMark = "."});
    Enter("txtCalcBasis(0)", "0,8");
    EXPECT_EQ(Settings.MaxLPM, 0.8);
    Enter("txtInputB", "300,0");
    Enter("txtInputA", "1.000,5");
    Press(Qt::Key_Return);
    EXPECT_EQ(Row(2), "625 300 5,75 0,75");
    Press(Qt::Key_Up);
    EXPECT_EQ(Text("txtInputB"), "275");
    EXPECT_EQ(Row(3), "625 300 5,75 0,75");
    Enter("txtInputA", "500.5");
    Press(Qt::Key_Return);
    EXPECT_TRUE(IsBlank()) << "a point is no decimal mark here";
}

TEST_F(Keys, TheReminderComesBeforeTheResult) {
    m_environment.SetToday(2026, 12, 1);
    m_messages.Expect(MessageAnswer::No);
    m_messages.Expect(MessageAnswer::Ok);
    FillTable();
    EXPECT_TRUE(HasFocusSelected("txtInputA"));
    Press(Qt::Key_Down);
    EXPECT_EQ(m_messages.Asked().size(), 2U) << "once a month";
}

} // namespace
} // namespace plenair

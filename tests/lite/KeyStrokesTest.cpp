#include "lite/KeyStrokes.h"

#include "core/Settings.h"
#include "support/LiteArrays.h"
#include "support/Scripted.h"

#include <gtest/gtest.h>

namespace plenair {
namespace {

constexpr std::int16_t Up = 38;
constexpr std::int16_t Down = 40;

class KeyStrokes : public testing::Test {
  protected:
    KeyStrokes() {
        m_environment.NoteReminder();
        m_window.inputA = "500";
        m_window.inputB = "300";
    }

    std::string MiddleRow() const { return m_window.Row(2); }

    ProgramEnvironment m_environment;
    ScriptedMessages m_messages;
    LiteArrays m_window;
};

TEST_F(KeyStrokes, UpAndDownMoveTheHeightByOneStep) {
    CalculateTexts(m_window, "500", "300", "0.8");
    HandleKeyStroke(m_window, Down, "txtInputA");
    EXPECT_EQ(m_window.inputB, "325");
    EXPECT_EQ(MiddleRow(), "350 325 4.61 0.67");
    EXPECT_EQ(m_window.MinorCell(4, 1), "375");
    EXPECT_TRUE(m_window.inputBFocused);

    m_window.inputBFocused = false;
    HandleKeyStroke(m_window, Down, "txtInputB");
    EXPECT_EQ(m_window.inputB, "350");
    EXPECT_FALSE(m_window.inputBFocused) << "the focus stays";
    for (const char* height : {"325", "300", "275"}) {
        HandleKeyStroke(m_window, Up, "txtInputB");
        EXPECT_EQ(m_window.inputB, height);
    }
    EXPECT_EQ(MiddleRow(), "400 275 4.80 0.74");
}

TEST_F(KeyStrokes, TextsThatAreNoNumbersStillMoveTheHeight) {
    CalculateTexts(m_window, "500", "300", "0.8");
    for (const char* flow : {"", "abc"}) {
        m_window.inputA = flow;
        HandleKeyStroke(m_window, Down, "txtInputA");
        EXPECT_EQ(m_window.inputB, "325");
        EXPECT_EQ(MiddleRow(), "375 300 4.68 0.69");
    }
}

TEST_F(KeyStrokes, NothingElseDoesAnything) {
    CalculateTexts(m_window, "500", "300", "0.8");
    for (const std::int16_t key : std::initializer_list<std::int16_t>{0, 13, 27, 37, 39, 46, 49}) {
        HandleKeyStroke(m_window, key, "txtInputA");
    }
    for (const std::int16_t basis : std::initializer_list<std::int16_t>{3, 4}) {
        Settings.CalcBasis = basis;
        HandleKeyStroke(m_window, Up, "txtInputA");
        HandleKeyStroke(m_window, Down, "txtInputA");
    }
    EXPECT_EQ(m_window.inputB, "300");
    EXPECT_EQ(MiddleRow(), "375 300 4.68 0.69");
    EXPECT_FALSE(m_window.inputBFocused);
}

TEST_F(KeyStrokes, AnyTextThatIsNoNumberPreventsTheCalculation) {
    m_environment.SetToday(2027, 1, 1); // nor does the reminder come
    for (std::int16_t basis = 0; basis < 5; ++basis) {
        Settings.CalcBasis = basis;
        CalculateTexts(m_window, "", "300", "0.8");
        CalculateTexts(m_window, "500", "30 0", "0.8");
        CalculateTexts(m_window, "500", "300", "");
    }
    EXPECT_EQ(MiddleRow(), "");
}

} // namespace
} // namespace plenair

#include "lite/KeyStrokes.h"

#include "core/Settings.h"
#include "platform/desktop/KeyCodes.h"
#include "platform/text/NumberText.h"
#include "support/LiteArrays.h"
#include "support/ScriptedDesktop.h"

#include <gtest/gtest.h>

namespace plenair {
namespace {

class KeyStrokes : public testing::Test {
  protected:
    KeyStrokes() { environment.NoteReminder(); }

    ProgramEnvironment environment;
    ScriptedDesktop desktop;
    LiteArrays window;
};

TEST_F(KeyStrokes, ThreeTextsOfNumbersCalculate) {
    const std::string point = "375 300 4.68 0.69";
    const struct {
        const char *mark, *a, *b, *value;
        std::string shown; // in the middle row
    } rows[] = {
        {".", "500", "300", "1", point},  {".", " 5E2 ", "300.0", "1", point},
        {".", "", "300", "1", ""},        {".", "5x", "300", "1", ""},
        {".", "0x1f", "300", "1", ""},    {".", "1e999", "300", "1", ""},
        {".", "5,00", "300", "1", ""},    {".", "500", "", "1", ""},
        {".", "500", "inf", "1", ""},     {".", "500", "300", "", ""}, // also where it has no use
        {".", "500", "300", "nan", ""},   {",", "500,0", " 300", "1,5", "375 300 4,68 0,69"},
        {",", "500.5", "300", "1,5", ""}, {",", "1.000,5", "300", "1", "625 300 5,75 0,75"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.a) + ", " + row.b + ", " + row.value);
        SetNumberLocale({.DecimalMark = row.mark, .GroupMark = *row.mark == '.' ? "," : "."});
        window = LiteArrays();
        window.boxes[0] = ShortestText(0.8);
        CalculateTexts(window, row.a, row.b, row.value);
        EXPECT_EQ(window.Row(2), row.shown);
    }
}

TEST_F(KeyStrokes, UpAndDownStepTheHeight) {
    const struct {
        const char* name;
        std::int16_t basis;
        int key;
        const char *control, *a, *b;
        bool results;             // of 500 and b stand in the table
        const char* height;       // then in txtInputB
        const char* middle;       // then in the table
        const char* focused = ""; // where the focus has gone
    } rows[] = {
        {"down", 0, kKeyDownArrow, "txtInputB", "500", "300", true, "325", "350 325 4.61 0.67"},
        {"up", 0, kKeyUpArrow, "txtInputB", "500", "300", true, "275", "400 275 4.80 0.74"},
        {"from the flow", 2, kKeyUpArrow, "txtInputA", "500", "300", true, "275", "400 275 4.80 0.74",
         "txtInputB"},
        {"no results", 0, kKeyUpArrow, "txtInputA", "500", "300", false, "", "", "txtInputB"},
        {"no flow", 1, kKeyDownArrow, "txtInputB", "", "300", true, "325", "375 300 4.68 0.69"},
        {"a flow that is no number", 0, kKeyDownArrow, "txtInputB", "abc", "300", true, "325",
         "375 300 4.68 0.69"},
        {"a height that leaves no rows", 0, kKeyUpArrow, "txtInputB", "500", "60", true, "35",
         "3425 60 4.38 0.58"},
        {"an analysis", 3, kKeyDownArrow, "txtInputA", "500", "300", true, "300", "500 300 3.54 0.35"},
        {"the other analysis", 4, kKeyUpArrow, "txtInputA", "500", "300", true, "300", "500 300 5.00 0.66"},
        {"another key", 0, kKeyRight, "txtInputA", "500", "300", true, "300", "375 300 4.68 0.69"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        window = LiteArrays();
        Settings.CalcBasis = row.basis;
        if (row.results) {
            CalculateTexts(window, "500", row.b, row.basis == 3 ? "500" : "5");
        }
        window.inputA = row.a;
        window.inputB = row.b;
        HandleKeyStroke(window, static_cast<std::int16_t>(row.key), row.control);
        EXPECT_EQ(window.inputB, row.height);
        EXPECT_EQ(window.Row(2), row.middle) << "over the old results";
        EXPECT_EQ(window.focused, row.focused);
    }
}

} // namespace
} // namespace plenair

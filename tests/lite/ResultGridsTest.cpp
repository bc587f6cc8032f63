#include "lite/ResultGrids.h"

#include "flow/CalcFailure.h"
#include "platform/NumberText.h"
#include "support/LiteArrays.h"

#include <gtest/gtest.h>

#include <limits>

namespace plenair {
namespace {

TEST(ResultGrids, LampsGoByTheRatio) {
    const struct {
        float width, height;
        Lamp lamp;
    } rows[] = {
        {100, 100, Lamp::Green},     {400, 100, Lamp::Green},    {401, 100, Lamp::Yellow},
        {500, 100, Lamp::Yellow},    {501, 100, Lamp::Orange},   {800, 100, Lamp::Orange},
        {801, 100, Lamp::Red},       {62825, 10, Lamp::Red},     {400.4F, 100, Lamp::Green}, // as shown
        {400.5F, 100, Lamp::Yellow}, {800, 99.5F, Lamp::Orange}, {16e6F, 4e6F, Lamp::Green},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.width << " x " << row.height);
        LiteArrays view;
        FillGrids(view, row.width, row.height, 5, 1, 0.3, 0.5, 1);
        FillGrids(view, row.height, row.width, 5, 1, 0.3, 0.5, 4);
        EXPECT_EQ(view.lamps[1], row.lamp);
        EXPECT_EQ(view.lamps[4], row.lamp) << "with the sides swapped";
        EXPECT_EQ(view.RoundDuct(), "") << "only row 2 has one";
    }
}

TEST(ResultGrids, WritesTextsOfTheLocale) {
    LiteArrays view;
    SetNumberLocale({.decimalMark = ",", .groupMark = "."});
    FillGrids(view, 1234.5F, 299.5F, 4.125F, 0.004F, 0.375, 0.5, 2);
    SetNumberLocale({});
    EXPECT_EQ(view.Row(2), "1235 300 4,13 0,00");
    EXPECT_EQ(view.RoundDuct(), "375 4,53 0,00");
    EXPECT_EQ(view.other[1], "");
    EXPECT_EQ(view.lamps[2], Lamp::Yellow);
}

TEST(ResultGrids, FailsAfterTheCells) {
    const float none = 0.4F;
    for (const auto& [width, height] :
         {std::pair(none, 300.0F), std::pair(300.0F, none), std::pair(none, none)}) {
        LiteArrays view;
        EXPECT_THROW(FillGrids(view, width, height, 5, 1, 0.3, 0.5, 2), CalcFailure);
        EXPECT_EQ(view.cells[2][3], "1.00");
        EXPECT_EQ(view.other[3], "1.00");
        EXPECT_FALSE(view.lamps[2]);
    }
    LiteArrays view;
    EXPECT_THROW(FillGrids(view, 300, 300, 5, 1, 0, 0.5, 2), CalcFailure) << "no velocity in no duct";
}

TEST(ResultGrids, NumbersOfTexts) {
    EXPECT_EQ(NumberOf(" 1,234.5 "), 1234.5);
    EXPECT_EQ(SingleOf("0.1"), 0.1F);
    for (const char* text : {"", " ", "x", "1 2", "inf", "nan", "0x10", "1E400"}) {
        EXPECT_THROW(NumberOf(text), CalcFailure) << text;
        EXPECT_THROW(SingleOf(text), CalcFailure) << text;
    }
    EXPECT_THROW(SingleOf("1E39"), CalcFailure);
}

} // namespace
} // namespace plenair

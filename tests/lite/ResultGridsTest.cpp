#include "lite/ResultGrids.h"

#include "flow/CalcFailure.h"
#include "support/LiteArrays.h"

#include <gtest/gtest.h>

namespace plenair {
namespace {

TEST(ResultGrids, LampsGoByTheRatio) {
    const struct {
        float width, height;
        Lamp lamp;
    } rows[] = {{100, 100, Lamp::Green},     {400, 100, Lamp::Green},    {401, 100, Lamp::Yellow},
                {500, 100, Lamp::Yellow},    {501, 100, Lamp::Orange},   {800, 100, Lamp::Orange},
                {801, 100, Lamp::Red},       {400.4F, 100, Lamp::Green}, // as shown
                {400.5F, 100, Lamp::Yellow}, {800, 99.5F, Lamp::Orange}};
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.width << " x " << row.height);
        LiteArrays view;
        FillGrids(view, {row.width, row.height, 5, 1, 0.3, 0.5}, 1);
        FillGrids(view, {row.height, row.width, 5, 1, 0.3, 0.5}, 4);
        EXPECT_EQ(view.lamps[1], row.lamp);
        EXPECT_EQ(view.lamps[4], row.lamp) << "with the sides swapped";
    }
    LiteArrays view;
    EXPECT_THROW(FillGrids(view, {300, 0.4F, 5, 1, 0.3, 0.5}, 2), CalcFailure);
    EXPECT_EQ(view.Row(2), "300 0 5.00 1.00") << "it fails after the cells";
    EXPECT_FALSE(view.lamps[2]);
}

} // namespace
} // namespace plenair

#include "project/ProjectGeometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace plenair {

TEST(SnapToGrid, GoesToTheNearestLine) {
    struct Case {
        const char* name;
        float value;
        double size;
        Axis axis;
        float snapped;
    };
    const Case cases[] = {
        {"down", 500, 15160, Axis::X, 379},
        {"up", 600, 15160, Axis::X, 758},
        {"broken pitch, down", 300, 218.25 * 40, Axis::X, 218},
        {"broken pitch, up by the exact pitch", 400, 218.25 * 40, Axis::X, 436.25F},
        {"half a pitch goes up", 44, 88 * 30, Axis::Y, 88},
        {"just below half", 43, 88 * 30, Axis::Y, 0},
        {"the value keeps its fraction", 90.25F, 88 * 30, Axis::Y, 88.25F},
        {"the value is rounded to even for the remainder", 43.5F, 88 * 30, Axis::Y, 87.5F},
        {"far edge", 15100, 15160, Axis::X, 15160},
        {"8K screen", 114000, 115200, Axis::X, 115200},
        {"nothing to snap to", 3, 10, Axis::X, 3},
    };
    for (const Case& row : cases) {
        EXPECT_EQ(SnapToGrid(row.value, row.size, row.axis), row.snapped) << row.name;
    }
}

TEST(ProjectGeometry, EndsAndLabelAreWholeHalvesToEven) {
    DuctRecord duct;
    duct.StartX = 0.25; // of 10: 2.5
    duct.EndX = 0.35;   // 3.5
    duct.StartY = 0;
    duct.EndY = 0.5;
    EXPECT_EQ(StartOf(duct, 10, 1).x, 2);
    EXPECT_EQ(EndOf(duct, 10, 1).x, 4);
    EXPECT_EQ(LabelPlace(duct, 10, 1).x, 3);
    EXPECT_EQ(EndOf(duct, 10, 1).y, 0);
    EXPECT_EQ(LabelPlace(duct, 10, 6).y, 2);
    EXPECT_EQ(EndOf(duct, 115200, 64800).y, 32400);
}

TEST(ProjectGeometry, DamagedValuesCanBeDrawn) {
    DuctRecord duct;
    duct.StartX = 1E308;
    duct.EndX = -1E308;
    EXPECT_EQ(StartOf(duct, 15000, 10000).x, 1E7);
    EXPECT_TRUE(std::isfinite(LabelPlace(duct, 15000, 10000).x));
    EXPECT_EQ(DrawnColour(RigidColour), 255U);
    EXPECT_EQ(DrawnColour(FlexibleColour), 16711680U);
    for (const float colour : {-1.0F, 16777216.0F, 3E38F}) {
        EXPECT_FALSE(IsColourNumber(colour));
        EXPECT_EQ(DrawnColour(colour), BlackColour);
    }
}

} // namespace plenair

#include "project/model/ProjectGeometry.h"
#include "project/DuctColour.h"
#include "support/Test.h"

namespace {

TEST(ProjectGeometry, SnapsToTheNearestLine) {
    const struct {
        const char* name;
        float value;
        double size;
        Axis axis;
        float snapped;
    } rows[] = {{"down", 500, 15160, Axis::X, 379},
                {"up", 600, 15160, Axis::X, 758},
                {"broken pitch, down", 300, 218.25 * 40, Axis::X, 218},
                {"broken pitch, up by the exact pitch", 400, 218.25 * 40, Axis::X, 436.25F},
                {"half a pitch goes up", 44, 88 * 30, Axis::Y, 88},
                {"just below half", 43, 88 * 30, Axis::Y, 0},
                {"the value keeps its fraction", 90.25F, 88 * 30, Axis::Y, 88.25F},
                {"the value is rounded to even for the remainder", 43.5F, 88 * 30, Axis::Y, 87.5F},
                {"far edge", 15100, 15160, Axis::X, 15160},
                {"nothing to snap to", 3, 10, Axis::X, 3}};
    for (const auto& row : rows) {
        EXPECT_EQ(SnapToGrid(row.value, row.size, row.axis), row.snapped) << row.name;
    }
}

// Also where the pitch is no whole number, and so what a click snaps to lies off the lines.
TEST(ProjectGeometry, EveryCrossingIsWhereAClickOnItSnapsTo) {
    for (double width = 15130; width < 15170; width += 0.7) {
        const Extent surface{width, width - 4000.1};
        for (int column = 0; column <= kCellsAcross; ++column) {
            const Crossing crossing{column, column * kCellsDown / kCellsAcross};
            const Point place = PlaceOf(crossing, surface);
            EXPECT_NEAR(place.X, column * width / kCellsAcross, 20.5);
            EXPECT_EQ(CrossingAt(place, surface), crossing);
            EXPECT_EQ(CrossingAt({place.X + 150, place.Y - 150}, surface), crossing);
        }
    }
}

TEST(ProjectGeometry, EndsAndLabelAreWholeHalvesToEven) {
    const DuctRecord duct{.StartX = 0.25, .EndX = 0.35, .EndY = 0.5};
    EXPECT_EQ(StartOf(duct, {10, 1}).X, 2);
    EXPECT_EQ(EndOf(duct, {10, 1}).X, 4);
    EXPECT_EQ(EndOf(duct, {10, 1}).Y, 0);
    EXPECT_EQ(LabelPlace(duct, {10, 6}).X, 3);
    EXPECT_EQ(LabelPlace(duct, {10, 6}).Y, 2);
    const DuctRecord damaged{.StartX = 1E308, .EndX = -1E308};
    EXPECT_EQ(StartOf(damaged, {15000, 10000}).X, 1E7);
    EXPECT_TRUE(std::isfinite(LabelPlace(damaged, {15000, 10000}).X));
    EXPECT_EQ(DrawnColour(3E38F), kBlackColour);
}

} // namespace

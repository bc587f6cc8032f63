#include "platform/desktop/KeyCodes.h"
#include "project/DuctColour.h"
#include "project/FakeWindows.h"
#include "project/model/ProjectGeometry.h"

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
    EXPECT_EQ(StartOf(duct, {10, 1}), (Point{2, 0}));
    EXPECT_EQ(EndOf(duct, {10, 1}), (Point{4, 0}));
    EXPECT_EQ(LabelPlace(duct, {10, 6}), (Point{3, 2}));
    const DuctRecord damaged{.StartX = 1E308, .EndX = -1E308};
    EXPECT_EQ(StartOf(damaged, {15000, 10000}).X, 1E7);
    EXPECT_TRUE(std::isfinite(LabelPlace(damaged, {15000, 10000}).X));
    EXPECT_EQ(DrawnColour(3E38F) + DrawnColour(16777216) + DrawnColour(-1), kBlackColour);
    EXPECT_EQ(DrawnColour(16777215), 16777215U);
}

TEST_F(ProjectTest, ClicksDrawAndAdd) {
    const Lines grid = Drawn(0);
    ASSERT_EQ(grid.size(), GridLines) << "inner lines only";
    EXPECT_EQ(grid[38], "1 line 15790320: 14781,0 14781,10470");
    EXPECT_EQ(grid[39], "1 line 15790320: 0,349 15160,349");

    Click(390, 340); // snaps to one pitch each
    EXPECT_EQ(Drawn(), Lines{"2 box 0: 329,299 429,399"});
    DrawColour = kConnectionColour;
    Click(1100, 340);
    EXPECT_EQ(Drawn(), (Lines{"2 box 0: 329,299 429,399", "2 box 0: 1087,299 1187,399",
                              "2 line 65535: 379,349 1137,349", "text C1: 758,349"}));
    EXPECT_EQ(Ducts[1].StartX, P / 15160);
    EXPECT_EQ(Ducts[1].EndX, 3 * P / 15160);
    EXPECT_EQ(DuctInWords(1), "C1 connection, from 1, 1 to 3, 1");
    Ducts[1].ConnCoefficient = 0.5F;
    Ducts[1].Velocity = 4.7;
    Ducts[1].StartX = std::nan("");
    EXPECT_EQ(DuctInWords(1),
              "C1 connection, from 0, 1 to 3, 1, Velocity (m/s) 4.7, Connection Coefficient 0.5");
    Ducts[1].StartX = P / 15160;

    // The redraw shows the same, in another order, and forgets the point held.
    Play("#1,5 Redraw");
    const Lines network{
        "2 box 0: 329,299 429,399",   "2 box 0: 1087,299 1187,399", "2 line 65535: 379,349 1137,349",
        "2 box 0: 1087,299 1187,399", "2 box 0: 329,1695 429,1795", "2 line 65535: 1137,349 379,1745",
        "text C1: 758,349",           "text C2: 758,1047"};
    EXPECT_EQ(Drawn(), network);
    EXPECT_EQ(DrawPending, kFlagClear);
    HighlightDuct(windows, 1);
    HighlightDuct(windows, 2);
    EXPECT_EQ(Drawn(GridLines + network.size()),
              (Lines{"4 line 65280: 1137,349 379,1745", "text C2: 758,1047"}));
}

TEST_F(ProjectTest, KeysDrawLikeClicks) {
    const auto press = [&](std::initializer_list<int> keys, bool control = false) {
        for (const int key : keys) {
            EXPECT_TRUE(PressGridKey(windows, key, control));
        }
        return solver.Cross;
    };
    EXPECT_EQ(solver.Cross, (Crossing{20, 15}));
    EXPECT_EQ(press({kKeyHome, kKeyPageUp, kKeyLeft, kKeyUpArrow}), (Crossing{0, 0}));
    EXPECT_EQ(press({kKeyRight, kKeyRight, kKeyLeft, kKeyDownArrow}), (Crossing{1, 1}));
    EXPECT_EQ(solver.cross, (Point{P, Q}));
    press({kKeySpace});
    EXPECT_EQ(press({kKeyRight, kKeyDownArrow}, true), (Crossing{6, 6}));
    press({kKeyEnter, kKeyUpArrow, kKeyEnter, kKeyEscape});
    EXPECT_EQ(press({kKeyEnd, kKeyPageDown, kKeyRight, kKeyDownArrow}), (Crossing{40, 30}));
    press({kKeySpace});
    PointAtGrid(windows, {3 * P - 20, 4 * Q + 20});
    EXPECT_EQ(solver.cross, (Point{3 * P, 4 * Q}));
    EXPECT_EQ(press({kKeyLeft}), (Crossing{2, 4}));
    press({kKeySpace});
    EXPECT_FALSE(PressGridKey(windows, 'A', false));
    std::string ducts;
    for (std::int16_t number = 1; number <= DuctCount; ++number) {
        ducts += DuctInWords(number) + "; ";
    }
    EXPECT_EQ(ducts, "R1 rigid, from 1, 1 to 6, 6; R2 rigid, from 6, 6 to 6, 5; "
                     "R3 rigid, from 40, 30 to 2, 4; ");
}

TEST_F(ProjectTest, NoDuctBeyondTheLast) {
    AddDucts(kMostDucts);
    Play("#1,1 | log: "); // a start point may still be set
    const Lines drawn = Drawn();
    Play("#2,1 | log: beep; state: 32767, held");
    EXPECT_EQ(Drawn(), drawn);
}

// The network that stands is reused; what it looks like must not show that.
TEST_F(ProjectTest, RedrawShowsWhatIsThereNow) {
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"clicks", [&] { Play("#0,0 #1,1 #2,2 #3,3 #4,4"); }},
        {"the sheet, ticked and not",
         [&] {
             sheet.value = 4;
             Play("Sheet | state: 4, sheet");
             EXPECT_EQ(sheet.value, 1);
             EXPECT_EQ(Drawn().at(Drawn().size() - 2), "4 line 65280: 0,0 379,349");
             solver.sheetTicked = false;
             Play("Sheet | state: 4");
         }},
        {"a highlight", [&] { HighlightDuct(windows, 2); }},
        {"labels off", [&] { solver.labels = false; }},
        {"another picture",
         [&] {
             solver.picGrid.Clear(), solver.picGrid.Overlay.Line({0, 0}, {1, 1}, 0);
         }},
        {"another size", [&] { solver.height = 20000; }},
        {"ducts less, but for the first",
         [&] {
             Play("Less Less Less Less | state: 1");
             EXPECT_EQ(sheet.caption + " of " + std::to_string(sheet.maximum), "R1 of 1");
         }},
        {"others in their place", [&] {
             HighlightDuct(windows, 2);
             Play("#1,1 #2,1");
             AddDucts(1);
             Play("#1,1 #2,3");
         }}};
    for (const auto& [change, act] : changes) {
        act();
        Play("Redraw");
        GridPicture anew;
        anew.SetSize({solver.width, solver.height});
        ShowNetwork(anew, solver.BackColour(), solver.labels);
        EXPECT_EQ(Drawn(0), Described(anew.Items())) << change;
    }
}

} // namespace

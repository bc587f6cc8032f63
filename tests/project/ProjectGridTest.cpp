#include "project/FakeWindows.h"

namespace plenair {

constexpr double P = 379; // pitch across
constexpr double Q = 349; // pitch down

TEST_F(ProjectTest, ClicksDrawAndAdd) {
    const Lines grid = Described(solver.picGrid);
    ASSERT_EQ(grid.size(), GridLines) << "inner lines only";
    EXPECT_EQ(grid[38], "1 line 15790320: 14781,0 14781,10470");
    EXPECT_EQ(grid[39], "1 line 15790320: 0,349 15160,349");

    Click(390, 340); // snaps to one pitch each
    EXPECT_EQ(Described(solver.picGrid, GridLines), Lines{"2 box 0: 329,299 429,399"});
    DrawColour = kConnectionColour;
    Click(1100, 340);
    EXPECT_EQ(Described(solver.picGrid, GridLines + 1),
              (Lines{"2 box 0: 1087,299 1187,399", "2 line 65535: 379,349 1137,349", "text C1: 758,349"}));
    EXPECT_EQ(Ducts[1].StartX, P / 15160);
    EXPECT_EQ(Ducts[1].EndX, 3 * P / 15160);
    Click(P, 5 * Q);

    // The redraw shows the same, in another order, and forgets the point held.
    RedrawProject(windows);
    EXPECT_EQ(
        Described(solver.picGrid, GridLines),
        (Lines{"2 box 0: 329,299 429,399", "2 box 0: 1087,299 1187,399", "2 line 65535: 379,349 1137,349",
               "2 box 0: 1087,299 1187,399", "2 box 0: 329,1695 429,1795", "2 line 65535: 1137,349 379,1745",
               "text C1: 758,349", "text C2: 758,1047"}));
    EXPECT_EQ(DrawPending, kFlagClear);

    HighlightDuct(windows, 1);
    HighlightDuct(windows, 2);
    EXPECT_EQ(Described(solver.picGrid, GridLines + 2 * 4),
              (Lines{"4 line 65280: 1137,349 379,1745", "text C2: 758,1047"}));
}

TEST_F(ProjectTest, NoDuctBeyondTheLast) {
    DuctCount = kMostDucts;
    FitDucts();
    Click(P, Q);
    EXPECT_EQ(desktop.Times("beep"), 0); // a start point may still be set
    const Lines drawn = Described(solver.picGrid);
    Click(2 * P, Q);
    EXPECT_EQ(desktop.Times("beep"), 1);
    EXPECT_EQ(DuctCount, kMostDucts);
    EXPECT_EQ(Described(solver.picGrid), drawn);
}

// The network that stands is reused; what it looks like must not show that.
TEST_F(ProjectTest, RedrawShowsWhatIsThereNow) {
    const auto expectAnew = [&](const char* change) {
        RedrawProject(windows);
        GridPicture anew;
        anew.SetSize({solver.width, solver.height});
        anew.ShowNetwork(solver.BackColour(), solver.labels);
        EXPECT_EQ(Described(solver.picGrid), Described(anew)) << change;
    };
    for (int click = 0; click < 5; ++click) {
        Click(P * click, Q * click);
    }
    expectAnew("clicks");
    HighlightDuct(windows, 2);
    expectAnew("a highlight");
    solver.labels = false;
    expectAnew("labels off");
    solver.picGrid.Clear();
    solver.picGrid.Line({0, 0}, {1, 1}, 0);
    expectAnew("another picture");
    solver.height = 20000;
    expectAnew("another size");
    RemoveLastDuct(windows);
    expectAnew("a duct less");
    HighlightDuct(windows, 2);
    solver.picGrid.CutBackTo(3);
    expectAnew("a cut");
}

} // namespace plenair

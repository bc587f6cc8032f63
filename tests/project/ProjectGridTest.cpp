#include "project/FakeWindows.h"

namespace plenair {

namespace {

class ProjectGridTest : public ProjectTest {
  public:
    using ProjectTest::Click;
    using ProjectTest::windows;
};

constexpr double P = 379; // pitch across
constexpr double Q = 349; // pitch down

} // namespace

TEST_F(ProjectGridTest, GridHasInnerLinesOnly) {
    const Lines lines = Described(solver.picGrid);
    ASSERT_EQ(lines.size(), GridLines);
    EXPECT_EQ(lines.front(), "1 line 15790320: 379,0 379,10470");
    EXPECT_EQ(lines[38], "1 line 15790320: 14781,0 14781,10470");
    EXPECT_EQ(lines[39], "1 line 15790320: 0,349 15160,349");
    EXPECT_EQ(lines.back(), "1 line 15790320: 0,10121 15160,10121");
}

TEST_F(ProjectGridTest, ClicksDrawAndAdd) {
    Click(390, 340); // snaps to one pitch each
    EXPECT_EQ(DuctCount, 0);
    EXPECT_EQ(Described(solver.picGrid, GridLines), Lines{"2 box 0: 329,299 429,399"});
    DrawColour = ConnectionColour; // the chain goes on in the new type
    Click(1100, 340);
    ASSERT_EQ(DuctCount, 1);
    EXPECT_EQ(Described(solver.picGrid, GridLines + 1),
              (Lines{"2 box 0: 1087,299 1187,399", "2 line 65535: 379,349 1137,349", "text C1: 758,349"}));
    EXPECT_EQ(Ducts[1].StartX, 379.0 / 15160);
    EXPECT_EQ(Ducts[1].EndX, 1137.0 / 15160);
    EXPECT_EQ(Ducts[1].Colour, ConnectionColour);
    EXPECT_EQ(sheet.maximum, 1);
    EXPECT_EQ(sheet.caption, "1"); // the sheet stays where it is
    Click(P, 5 * Q);
    EXPECT_EQ(sheet.maximum, 2);

    // The redraw shows the same, in another order, and forgets the point held.
    RedrawProject(windows);
    EXPECT_EQ(
        Described(solver.picGrid, GridLines),
        (Lines{"2 box 0: 329,299 429,399", "2 box 0: 1087,299 1187,399", "2 line 65535: 379,349 1137,349",
               "2 box 0: 1087,299 1187,399", "2 box 0: 329,1695 429,1795", "2 line 65535: 1137,349 379,1745",
               "text C1: 758,349", "text C2: 758,1047"}));
    EXPECT_EQ(DrawPending, FlagClear);
}

TEST_F(ProjectGridTest, LabelsCanBeOff) {
    solver.labels = false;
    Click(P, Q);
    Click(P, Q); // no extent is no reason to refuse a duct
    EXPECT_EQ(DuctCount, 1);
    HighlightDuct(windows, 1);
    for (const std::string& line : Described(solver.picGrid)) {
        EXPECT_NE(line.substr(0, 4), "text");
    }
}

TEST_F(ProjectGridTest, DrawingStates) {
    struct Case {
        const char* name;
        bool holding;
        void (*event)(ProjectGridTest& test);
        bool holdingAfter;
        std::int16_t ductsAfter; // one stands there before
        int beeps;
    };
    const Case cases[] = {
        {"idle, left", false, [](ProjectGridTest& t) { t.Click(P, Q); }, true, 1, 0},
        {"idle, middle", false, [](ProjectGridTest& t) { t.Click(P, Q, MouseButton::Middle); }, true, 1, 0},
        {"idle, right", false, [](ProjectGridTest& t) { t.Click(P, Q, MouseButton::Right); }, false, 1, 0},
        {"holding, left", true, [](ProjectGridTest& t) { t.Click(P, Q); }, true, 2, 0},
        {"holding, middle", true, [](ProjectGridTest& t) { t.Click(P, Q, MouseButton::Middle); }, true, 2, 0},
        {"holding, right", true, [](ProjectGridTest& t) { t.Click(P, Q, MouseButton::Right); }, false, 1, 0},
        {"holding, laying out", true, [](ProjectGridTest& t) { ResetProjectGrid(t.windows); }, false, 1, 0},
        {"holding, redraw", true, [](ProjectGridTest& t) { RedrawProject(t.windows); }, false, 1, 0},
        {"holding, highlight", true, [](ProjectGridTest& t) { HighlightDuct(t.windows, 1); }, false, 1, 0},
        {"holding, no highlight", true, [](ProjectGridTest& t) { HighlightDuct(t.windows, 0); }, true, 1, 0},
        {"holding, scroll bar", true, [](ProjectGridTest& t) { ChangeDuctNo(t.windows); }, false, 1, 0},
        {"solved, left", true,
         [](ProjectGridTest& t) {
             Solved = FlagSet;
             t.Click(P, Q);
         },
         true, 1, 1},
        {"solved, right", true,
         [](ProjectGridTest& t) {
             Solved = FlagSet;
             t.Click(P, Q, MouseButton::Right);
         },
         true, 1, 1},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        StartProject();
        desktop.Log.clear();
        Add(RigidColour);
        DrawPending = row.holding ? FlagSet : FlagClear;
        row.event(*this);
        EXPECT_EQ(DrawPending != FlagClear, row.holdingAfter);
        EXPECT_EQ(DuctCount, row.ductsAfter);
        EXPECT_EQ(desktop.Beeps(), row.beeps);
    }
}

TEST_F(ProjectGridTest, ChainsOfTenClicks) {
    for (int click = 0; click < 10; ++click) {
        Click(P * click, Q);
    }
    EXPECT_EQ(DuctCount, 9);
    Click(0, 0, MouseButton::Right);
    Click(2 * P, 2 * Q);
    Click(3 * P, 2 * Q);
    EXPECT_EQ(DuctCount, 10);
    EXPECT_EQ(Ducts[10].StartX * 15160, 2 * P);
}

TEST_F(ProjectGridTest, NoDuctBeyondTheLast) {
    DuctCount = MostDucts;
    FitDucts();
    Click(P, Q);
    EXPECT_EQ(desktop.Beeps(), 0); // a start point may still be set
    const std::size_t drawn = solver.picGrid.Items().size();
    Click(2 * P, Q);
    EXPECT_EQ(desktop.Beeps(), 1);
    EXPECT_EQ(DuctCount, MostDucts);
    EXPECT_EQ(solver.picGrid.Items().size(), drawn);
}

// The network that stands is reused; what it looks like must not show that.
TEST_F(ProjectGridTest, RedrawShowsWhatIsThereNow) {
    const auto expectAnew = [&](const char* change) {
        SCOPED_TRACE(change);
        RedrawProject(windows);
        GridPicture anew;
        anew.SetSize(solver.width, solver.height);
        anew.ShowNetwork(solver.BackColour(), solver.labels);
        EXPECT_EQ(Described(solver.picGrid), Described(anew));
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
    for (int line = 0; line < 100; ++line) {
        solver.picGrid.Line(0, 0, line, line, 0);
    }
    expectAnew("another picture");
    solver.height = 20000;
    expectAnew("another size");
    RemoveLastDuct(windows);
    expectAnew("a duct less");
    HighlightDuct(windows, 2);
    solver.picGrid.CutBackTo(3);
    expectAnew("a cut");
}

TEST_F(ProjectGridTest, HighlightLiesOverTheNetwork) {
    Click(P, Q);
    Click(P, 3 * Q);
    Click(P, 5 * Q);
    HighlightDuct(windows, 1);
    HighlightDuct(windows, 2);
    const Lines lines = Described(solver.picGrid, GridLines + 2 * 4);
    EXPECT_EQ(lines, (Lines{"4 line 65280: 379,1047 379,1745", "text R2: 379,1396"}));
}

TEST_F(ProjectGridTest, RemovingTheLastDuct) {
    Click(P, Q);
    Click(2 * P, Q);
    RemoveLastDuct(windows);
    EXPECT_EQ(DuctCount, 1);
    EXPECT_TRUE(desktop.Log.empty());

    Click(0, 0, MouseButton::Right);
    Click(P, Q);
    Click(2 * P, Q);
    Click(3 * P, Q);
    sheet.SetScrollValue(3);
    EXPECT_EQ(sheet.caption, "R3");
    RemoveLastDuct(windows);
    EXPECT_EQ(DuctCount, 2);
    EXPECT_EQ(Ducts.size(), 3U);
    EXPECT_EQ(sheet.maximum, 2);
    EXPECT_EQ(sheet.caption, "R2");
    EXPECT_EQ(Described(solver.picGrid).back(), "text R2: 568,349");

    // A caption that no change of the scroll bar corrects.
    sheet.value = 1;
    RemoveLastDuct(windows);
    EXPECT_EQ(sheet.caption, "1");

    // After a file that broke off the maximum can lag behind.
    DuctCount = 5;
    FitDucts();
    RemoveLastDuct(windows);
    EXPECT_EQ(sheet.maximum, 1);
}

TEST_F(ProjectGridTest, ClearingTheGrid) {
    Click(P, Q);
    Click(2 * P, Q);
    Click(3 * P, Q);
    sheet.SetScrollValue(2);
    Solved = FlagSet;
    PlotShowing = FlagSet;
    ProjectName = "plant.gsp";
    sheet.SetBoxText(8, "7");

    desktop.ExpectMessage(MessageAnswer::No);
    ClearGrid(windows);
    EXPECT_EQ(DuctCount, 2);

    desktop.ExpectMessage(MessageAnswer::Yes);
    ClearGrid(windows);
    EXPECT_EQ(desktop.LastText(), "Clear Existing Project?");
    EXPECT_EQ(desktop.Messages().back().title, "Load Project");
    EXPECT_EQ(desktop.Messages().back().icon, MessageIcon::Question);
    EXPECT_EQ(DuctCount, 0);
    EXPECT_EQ(Solved, FlagClear);
    EXPECT_EQ(ProjectName, "");
    EXPECT_EQ(PlotShowing, FlagSet); // until the next redraw
    EXPECT_EQ(sheet.caption, "1");
    EXPECT_EQ(sheet.colour, 32768U);
    EXPECT_EQ(sheet.value, 1);
    EXPECT_EQ(sheet.AllTexts(), "0 0 0 0 0 0 0 7");
    EXPECT_FALSE(solver.pressureVisible);
    EXPECT_EQ(solver.picGrid.Items().size(), GridLines);
}

TEST_F(ProjectGridTest, SheetIsShownOnTheFirstDuct) {
    solver.sheetTicked = true;
    ShowOrHideSheet(windows); // nothing to highlight yet
    EXPECT_TRUE(sheet.visible);
    EXPECT_EQ(solver.picGrid.Items().size(), GridLines);

    Click(P, Q);
    Click(2 * P, Q);
    ShowOrHideSheet(windows);
    EXPECT_EQ(Described(solver.picGrid, GridLines + 4).front(), "4 line 65280: 379,349 758,349");
    solver.sheetTicked = false;
    ShowOrHideSheet(windows);
    EXPECT_FALSE(sheet.visible);
    EXPECT_EQ(solver.picGrid.Items().size(), GridLines + 4);
}

} // namespace plenair

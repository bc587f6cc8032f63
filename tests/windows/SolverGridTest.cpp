#include "project/ProjectGrid.h"
#include "windows/WindowTest.h"

namespace {

class SolverGrid : public SolverTest {
  protected:
    SolverGrid() {
        questions["holds"] = [] { return DrawPending == kFlagClear ? "nothing" : "a point"; };
        questions["colours"] = [this] { // of the first three ducts of a row
            std::string colours;
            for (int column = 1; column <= 3; ++column) {
                colours += ColourAt(Grid(), Grid().width() * (4 * column + 1) / (4 * kCellsAcross),
                                    Grid().height() / 10);
            }
            return colours;
        };
        questions["cross"] = [this] { // of the keyboard, at 3,2
            const QImage grid = Grid();
            const int x = grid.width() * 3 / kCellsAcross;
            return ColourAt(grid, x, grid.height() * 2 / kCellsDown) == "#c800c8" ? "shown" : "none";
        };
        actions["close"] = [this] { Find("cmdClose").setFocus(); };
    }
};

TEST_F(SolverGrid, ButtonsInTheOrderOfTheirTabs) {
    OpenSolver();
    Find("cmdClearGrid(2)").setFocus();
    Play(R"(Tab | focus: cmdLoadGsp
        Tab | focus: cmdSaveGsp
        Tab | focus: cmdPrintGus
        Tab | focus: cmdMajorOptions
        Tab | focus: optDuct(0)
        Right | focus: optDuct(1)
        Right | focus: optDuct(2); checked optDuct(2): true
        Tab | focus: cmdLessDuct(2)
        Tab | focus: chkLabels
        Tab | focus: chkParam
        Tab | focus: cmdGus
        qxQ | log: call
        Tab | focus: cmdClose
        Tab | focus: picGrid
        Tab | focus: cmdClearGrid(2))");
}

TEST_F(SolverGrid, EventsOfTheDrawing) {
    const char* const rows[] = {
        " | network: ; holds: nothing",
        "#1,1 | network: ; holds: a point",
        "#r | network: ; holds: nothing",
        "#1,1 #2,3 | network: R 1,1-2,3; holds: a point",
        "#m1,1 #m2,3 | network: R 1,1-2,3; holds: a point",
        "#1,1 #2,1 #3,1 | network: R 1,1-2,1 R 2,1-3,1; holds: a point",
        "#1,1 #1,1 | network: R 1,1-1,1; holds: a point",
        "#1,1 #2,1 #r #3,1 #4,1 | network: R 1,1-2,1 R 3,1-4,1; holds: a point",
        "#1,1 #2,1 @optDuct(1) #3,1 @optDuct(2) #4,1 | network: R 1,1-2,1 F 2,1-3,1 C 3,1-4,1; holds: a "
        "point",
        "#1,1 @chkLabels #2,1 | network: ; holds: a point", // labels off end a chain, and the rest, too
        "#1,1 #2,1 @chkParam | network: R 1,1-2,1; holds: nothing",
        "#1,1 #2,1 #3,1 @cmdLessDuct(2) | network: R 1,1-2,1; holds: nothing",
        "#1,1 #2,1 @cmdLessDuct(2) | network: R 1,1-2,1; holds: a point", // the last duct stays
        "@chkParam #1,1 #2,1 #3,1 @next | network: R 1,1-2,1 R 2,1-3,1; holds: nothing"};
    OpenSolver();
    for (const char* row : rows) {
        for (const char* toggle : {"chkLabels", "chkParam", "optDuct(0)"}) {
            Find<ToggleButton>(toggle).SetOn(std::string(toggle) != "chkParam");
        }
        Play(std::string("?Yes @cmdClearGrid(2) ") + row);
    }
    DrawPending = Solved = kFlagSet; // a solved project takes nothing, nor forgets
    desktop.Log.clear();
    Play("#2,1 #r @cmdSaveGsp @cmdLessDuct(2) | log: beep, beep, beep, beep; network: R 1,1-2,1 R 2,1-3,1; "
         "holds: a point");
}

TEST_F(SolverGrid, ClearingAndClosingAsk) {
    OpenSheet("RFC");
    Find("cmdCalcPressure").show();
    Solved = kFlagSet;
    Play("?No @cmdClearGrid(2) | state: 0 0 0  solved+, 1 0\n"
         "?Yes @cmdClearGrid(2) | state:  , 1 0; duct: 1 #008000");
    DrawRow("R");
    const auto closes = [&](const char* answers) {
        Play(answers);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return !SolverIsThere();
    };
    EXPECT_FALSE(closes("?Cancel Alt+C"));
    EXPECT_TRUE(closes("?Yes ?- Alt+C")) << "whatever comes of the save";
    EXPECT_TRUE(Window().isVisible());
    EndProgram();
    OpenSolver();
    EXPECT_EQ(DuctCount, 0) << "opening clears the project";
    EXPECT_TRUE(closes("?No Alt+C"));
}

TEST_F(SolverGrid, ColoursOnTheScreen) {
    OpenSolver();
    DrawRow("RFC");
    Play(R"(| colours: #ff0000#0000ff#ffff00
        @chkParam | colours: #00ff00#0000ff#ffff00
        @scrDuctNo | colours: #ff0000#00ff00#ffff00
        @chkParam | colours: #ff0000#0000ff#ffff00)"); // the duct of the sheet is green
}

TEST_F(SolverGrid, AProjectCanBeDrawnByTheKeyboard) {
    OpenSolver();
    Play(R"(#3,2 | cross: none
        Ctrl+Right Space Ctrl+Left | cross: shown
        !close | cross: none
        Tab | cross: shown
        Escape Home Return PgDown Return | network: R 3,2-8,2 R 0,2-0,30)");
}

// However a picture came about, it is the one that its network gives when it is painted in one go.
TEST_F(SolverGrid, PaintingInStepsIsPaintingInOneGo) {
    OpenSolver();
    std::mt19937 random(3);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    for (int step = 0; step < 80; ++step) {
        Play("#" + std::to_string(below(kCellsAcross)) + "," + std::to_string(below(kCellsDown)));
        if (below(2) == 0) {
            Grid();
        }
        const auto marked = static_cast<std::int16_t>(below(3) == 0 ? below(DuctCount + 1) : 0);
        if (marked != 0) {
            HighlightDuct({Solver(), Sheet()}, marked);
        } else if (below(2) == 0) {
            Play(below(2) == 0 ? "@cmdLessDuct(2)" : "@chkLabels");
        }
        if (DrawPending == kFlagSet) {
            continue; // what a click has drawn since lies over the labels
        }
        GridPicture anew;
        anew.SetSize(Solver().PicGrid().Size());
        ShowNetwork(anew, Solver().BackColour(), Solver().LabelsTicked());
        if (marked != 0) {
            DrawHighlight(anew.Overlay, marked);
            if (Solver().LabelsTicked()) {
                PrintLabel(anew.Overlay, marked);
            }
        }
        PictureBox box("anew", anew, nullptr);
        box.resize(Find("picGrid").size());
        box.setFont(Find("picGrid").font());
        ASSERT_EQ(Grid(), box.grab().toImage()) << step;
    }
}

} // namespace

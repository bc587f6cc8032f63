#include "project/ProjectGrid.h"
#include "windows/WindowTest.h"

namespace {

class SolverGrid : public SolverTest {};

TEST_F(SolverGrid, ButtonsInTheOrderOfTheirTabs) {
    OpenSolver();
    Find("cmdClearGrid(2)").setFocus();
    for (const std::string name :
         {"cmdClearGrid(2)", "cmdLoadGsp", "cmdSaveGsp", "cmdPrintGus", "cmdMajorOptions", "optDuct(0)",
          "optDuct(1)", "optDuct(2)", "cmdLessDuct(2)", "chkLabels", "chkParam", "cmdGus", "cmdClose",
          "picGrid"}) {
        EXPECT_EQ(Focused(), name);
        const bool group = name == "optDuct(0)" || name == "optDuct(1)"; // there the arrows go on, and select
        Press(group ? Qt::Key_Right : Qt::Key_Tab);
    }
    Find("cmdGus").setFocus();
    Type("qxQ");
    EXPECT_EQ(desktop.Log, std::vector<std::string>{"call"});
}

TEST_F(SolverGrid, EventsOfTheDrawing) {
    const struct {
        const char* name;
        const char* events;
        const char* network;
        bool holding;
    } rows[] = {
        {"nothing", "", "", false},
        {"the first click holds", "#1,1", "", true},
        {"a right click while idle", "#r", "", false},
        {"the second makes a duct", "#1,1 #2,3", "R 1,1-2,3", true},
        {"the middle button draws too", "#m1,1 #m2,3", "R 1,1-2,3", true},
        {"a chain", "#1,1 #2,1 #3,1", "R 1,1-2,1 R 2,1-3,1", true},
        {"the same place twice", "#1,1 #1,1", "R 1,1-1,1", true},
        {"a right click ends a chain", "#1,1 #2,1 #r #3,1 #4,1", "R 1,1-2,1 R 3,1-4,1", true},
        {"the type changes in a chain", "#1,1 #2,1 @optDuct(1) #3,1 @optDuct(2) #4,1",
         "R 1,1-2,1 F 2,1-3,1 C 3,1-4,1", true},
        {"labels off end a chain", "#1,1 @chkLabels #2,1", "", true},
        {"the sheet ends a chain", "#1,1 #2,1 @chkParam", "R 1,1-2,1", false},
        {"removing ends a chain", "#1,1 #2,1 #3,1 @cmdLessDuct(2)", "R 1,1-2,1", false},
        {"the last duct stays", "#1,1 #2,1 @cmdLessDuct(2)", "R 1,1-2,1", true},
        {"the scroll bar ends a chain", "@chkParam #1,1 #2,1 #3,1 @next", "R 1,1-2,1 R 2,1-3,1", false}};
    OpenSolver();
    for (const auto& row : rows) {
        for (const char* toggle : {"chkLabels", "chkParam", "optDuct(0)"}) {
            Find<ToggleButton>(toggle).SetOn(std::string(toggle) != "chkParam");
        }
        Play("?Yes @cmdClearGrid(2)\n" + std::string(row.events) + " | network: " + row.network);
        EXPECT_EQ(DrawPending != kFlagClear, row.holding) << row.name;
    }
    DrawPending = Solved = kFlagSet; // a solved project takes nothing, nor forgets
    desktop.Log.clear();
    Play("#2,1 #r @cmdSaveGsp @cmdLessDuct(2) | log: beep, beep, beep, beep; network: R 1,1-2,1 R 2,1-3,1");
    EXPECT_EQ(DrawPending, kFlagSet);
}

TEST_F(SolverGrid, ClearingAndClosingAsk) {
    OpenSheet("RFC");
    Find("cmdCalcPressure").show();
    Solved = kFlagSet;
    Play("?No @cmdClearGrid(2) | state: 0 0 0  solved+, 1 0\n"
         "?Yes @cmdClearGrid(2) | state:  , 1 0; duct: 1 #008000");
    DrawRow("R");
    const auto close = [&](const char* answers) {
        Play(answers);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return !SolverIsThere();
    };
    EXPECT_FALSE(close("?Cancel Alt+C"));
    EXPECT_TRUE(close("?Yes ?- Alt+C")) << "whatever comes of the save";
    EXPECT_TRUE(Window().isVisible());
    EndProgram();
    OpenSolver();
    EXPECT_EQ(DuctCount, 0) << "opening clears the project";
    EXPECT_TRUE(close("?No Alt+C"));
}

TEST_F(SolverGrid, ColoursOnTheScreen) {
    OpenSolver();
    const auto colours = [&] {
        std::string all;
        for (int column = 1; column <= 3; ++column) {
            all += ColourAt(Grid(), Grid().width() * (4 * column + 1) / (4 * kCellsAcross),
                            Grid().height() / 10);
        }
        return all;
    };
    DrawRow("RFC");
    EXPECT_EQ(colours(), "#ff0000#0000ff#ffff00");
    Click("chkParam");
    EXPECT_EQ(colours(), "#00ff00#0000ff#ffff00") << "the duct of the sheet is green";
    Click("scrDuctNo"); // below its thumb
    EXPECT_EQ(colours(), "#ff0000#00ff00#ffff00");
    Click("chkParam");
    EXPECT_EQ(colours(), "#ff0000#0000ff#ffff00");
}

TEST_F(SolverGrid, AProjectCanBeDrawnByTheKeyboard) {
    OpenSolver();
    const auto purple = [&] {
        const QImage grid = Grid();
        return ColourAt(grid, grid.width() * 3 / kCellsAcross, grid.height() * 2 / kCellsDown) == "#c800c8";
    };
    Play("#3,2");
    EXPECT_FALSE(purple()) << "the mouse needs no cross";
    Play("Ctrl+Right Space Ctrl+Left");
    EXPECT_TRUE(purple());
    Find("cmdClose").setFocus();
    EXPECT_FALSE(purple());
    Play("Tab");
    EXPECT_TRUE(purple());
    Play("Escape Home Return PgDown Return | network: R 3,2-8,2 R 0,2-0,30");
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
            Click(below(2) == 0 ? "cmdLessDuct(2)" : "chkLabels");
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

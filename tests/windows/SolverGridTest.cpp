#include "project/ProjectGrid.h"
#include "windows/SolverTest.h"

namespace {

class SolverGrid : public SolverTest {};

// The ducts in the crossings of the grid lines, as in "R 1,1-2,1 F 2,1-2,3".
std::string Network() {
    std::ostringstream all;
    for (std::size_t number = 1; number < Ducts.size(); ++number) {
        const DuctRecord& duct = Ducts[number];
        all << (number == 1 ? "" : " ") << TypeLetter(duct.Colour) << ' '
            << std::lround(duct.StartX * kCellsAcross) << ',' << std::lround(duct.StartY * kCellsDown) << '-'
            << std::lround(duct.EndX * kCellsAcross) << ',' << std::lround(duct.EndY * kCellsDown);
    }
    return all.str();
}

TEST_F(SolverGrid, ButtonsInTheOrderOfTheirTabs) {
    OpenSolver();
    Get("cmdClearGrid(2)").setFocus();
    for (const std::string name :
         {"cmdClearGrid(2)", "cmdLoadGsp", "cmdSaveGsp", "cmdPrintGus", "cmdMajorOptions", "optDuct(0)",
          "optDuct(1)", "optDuct(2)", "cmdLessDuct(2)", "chkLabels", "chkParam", "cmdGus", "cmdClose",
          "picGrid"}) {
        EXPECT_EQ(Focused(), name);
        const bool group = name == "optDuct(0)" || name == "optDuct(1)"; // there the arrows go on, and select
        Press(group ? Qt::Key_Right : Qt::Key_Tab);
    }
    Get("cmdGus").setFocus();
    Type("qxQ");
    EXPECT_EQ(desktop.Log, std::vector<std::string>{"call"});
}

TEST_F(SolverGrid, EventsOfTheDrawing) {
    const struct {
        const char* name;
        std::string events; // clicks on crossings, by the middle button with m; r, the right one; and others
        const char* network;
        bool holding;
    } rows[] = {{"nothing", "", "", false},
                {"the first click holds", "11", "", true},
                {"a right click while idle", "r", "", false},
                {"the second makes a duct", "11 23", "R 1,1-2,3", true},
                {"the middle button draws too", "m11 m23", "R 1,1-2,3", true},
                {"a chain", "11 21 31", "R 1,1-2,1 R 2,1-3,1", true},
                {"the same place twice", "11 11", "R 1,1-1,1", true},
                {"a right click ends a chain", "11 21 r 31 41", "R 1,1-2,1 R 3,1-4,1", true},
                {"the type changes in a chain", "11 21 optDuct(1) 31 optDuct(2) 41",
                 "R 1,1-2,1 F 2,1-3,1 C 3,1-4,1", true},
                {"labels off end a chain", "11 chkLabels 21", "", true},
                {"the sheet ends a chain", "11 21 chkParam", "R 1,1-2,1", false},
                {"removing ends a chain", "11 21 31 cmdLessDuct(2)", "R 1,1-2,1", false},
                {"the last duct stays", "11 21 cmdLessDuct(2)", "R 1,1-2,1", true},
                {"the scroll bar ends a chain", "11 21 31 next", "R 1,1-2,1 R 2,1-3,1", false},
                {"a solved project takes nothing, nor forgets", "11 solved 21 r cmdSaveGsp cmdLessDuct(2)",
                 "", true}};
    OpenSolver();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        desktop.ExpectMessage(MessageAnswer::Yes);
        ClickOn("cmdClearGrid(2)");
        for (const char* toggle : {"chkLabels", "chkParam", "optDuct(0)"}) {
            Get<ToggleButton>(toggle).SetOn(std::string(toggle) != "chkParam");
        }
        desktop.Log.clear();
        std::istringstream events(row.events);
        for (std::string event; events >> event;) {
            const bool middle = event.front() == 'm';
            if (event == "r") {
                ClickGrid(9, 9, Qt::RightButton);
            } else if (event == "next") {
                Get<ScrollBar>("scrDuctNo").setValue(2);
            } else if (event == "solved") {
                Solved = kFlagSet;
            } else if (middle || event.size() == 2) {
                const auto at = event.end() - 2;
                ClickGrid(at[0] - '0', at[1] - '0', middle ? Qt::MiddleButton : Qt::LeftButton);
            } else {
                ClickOn(event);
            }
        }
        EXPECT_EQ(Network(), row.network);
        EXPECT_EQ(DrawPending != kFlagClear, row.holding);
        EXPECT_EQ(desktop.Log, std::vector<std::string>(Solved != kFlagClear ? 4 : 0, "beep"));
    }
}

TEST_F(SolverGrid, ClearingAsks) {
    OpenSheet("RFC");
    Get("cmdCalcPressure").show();
    Solved = kFlagSet;
    for (const MessageAnswer answer : {MessageAnswer::No, MessageAnswer::Yes}) {
        EXPECT_EQ(DuctCount, 3);
        desktop.ExpectMessage(answer);
        ClickOn("cmdClearGrid(2)");
    }
    EXPECT_EQ(DuctCount, 0);
    EXPECT_EQ(Solved, kFlagClear);
    EXPECT_FALSE(Get("cmdCalcPressure").isVisible());
    EXPECT_EQ(DuctNo(), "1 #008000");
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
    ClickOn("chkParam");
    EXPECT_EQ(colours(), "#00ff00#0000ff#ffff00") << "the duct of the sheet is green";
    ScrollOn();
    EXPECT_EQ(colours(), "#ff0000#00ff00#ffff00");
    ClickOn("chkParam");
    EXPECT_EQ(colours(), "#ff0000#0000ff#ffff00");
}

TEST_F(SolverGrid, AProjectCanBeDrawnByTheKeyboard) {
    OpenSolver();
    const auto purple = [&] {
        const QImage grid = Grid();
        return ColourAt(grid, grid.width() * 3 / kCellsAcross, grid.height() * 2 / kCellsDown) == "#c800c8";
    };
    ClickGrid(3, 2);
    EXPECT_FALSE(purple()) << "the mouse needs no cross";
    Press(Qt::Key_Right, Qt::ControlModifier);
    Press(Qt::Key_Space);
    Press(Qt::Key_Left, Qt::ControlModifier);
    EXPECT_TRUE(purple());
    Get("cmdClose").setFocus();
    EXPECT_FALSE(purple());
    Press(Qt::Key_Tab);
    EXPECT_TRUE(purple());
    for (const auto key : {Qt::Key_Escape, Qt::Key_Home, Qt::Key_Return, Qt::Key_PageDown, Qt::Key_Return}) {
        Press(key);
    }
    EXPECT_EQ(Network(), "R 3,2-8,2 R 0,2-0,30");
}

// However a picture came about, it is the one that its network gives when it is painted in one go.
TEST_F(SolverGrid, PaintingInStepsIsPaintingInOneGo) {
    OpenSolver();
    std::mt19937 random(3);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    for (int step = 0; step < 80; ++step) {
        ClickGrid(below(kCellsAcross), below(kCellsDown));
        if (below(2) == 0) {
            Grid();
        }
        const auto marked = static_cast<std::int16_t>(below(3) == 0 ? below(DuctCount + 1) : 0);
        if (marked != 0) {
            HighlightDuct({Solver(), Sheet()}, marked);
        } else if (below(2) == 0) {
            ClickOn(below(2) == 0 ? "cmdLessDuct(2)" : "chkLabels");
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
        box.resize(Get("picGrid").size());
        box.setFont(Get("picGrid").font());
        ASSERT_EQ(Grid(), box.grab().toImage()) << step;
    }
}

TEST_F(SolverGrid, ClosingAsks) {
    const auto close = [&](MessageAnswer answer) {
        desktop.ExpectMessage(answer);
        Press(Qt::Key_C, Qt::AltModifier);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return !SolverIsThere();
    };
    OpenSolver();
    DrawRow("R");
    EXPECT_FALSE(close(MessageAnswer::Cancel));
    EXPECT_EQ(desktop.LastText(), "Do you wish to save the current project?");
    desktop.ExpectCancel(); // the save that this Yes asks for: the window closes all the same
    EXPECT_TRUE(close(MessageAnswer::Yes));
    EXPECT_TRUE(Window().isVisible());
    EndProgram();
    OpenSolver();
    EXPECT_EQ(DuctCount, 0) << "opening clears the project";
    EXPECT_TRUE(close(MessageAnswer::No));
}

} // namespace

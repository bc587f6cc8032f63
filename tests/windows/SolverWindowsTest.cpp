#include "platform/desktop/Clipboard.h"
#include "project/ProjectGrid.h"
#include "windows/WindowTest.h"

#include <QElapsedTimer>
#include <QScreen>

namespace {

class SolverWindows : public SolverTest, public QObject {
  protected:
    SolverWindows() {
        questions["holds"] = [] { return DrawPending == kFlagClear ? "nothing" : "a point"; };
        questions["colours"] = [this] { // of the first three ducts of a row
            const QSize grid = Find("picGrid").size();
            std::string colours;
            for (const int column : {1, 2, 3}) {
                const int x = grid.width() * (4 * column + 1) / (4 * kCellsAcross);
                colours += ColourAt(Grid(), x, grid.height() / 10);
            }
            return colours;
        };
        const auto cross = [this](Crossing place) { // how much shows of the keyboard's cross
            const QSize grid = Find("picGrid").size();
            const auto [column, row] = place;
            int seen = 0;
            for (const QPoint arm : {QPoint(0, 0), {9, 0}, {-9, 0}, {0, 9}, {0, -9}}) {
                seen += ColourAt(Grid(), grid.width() * column / kCellsAcross + arm.x(),
                                 grid.height() * row / kCellsDown + arm.y()) == "#c800c8";
            }
            return seen == 5 ? "whole" : seen == 0 ? "nothing" : "part";
        };
        questions["cross"] = [=, this] { return cross(Solver().Cross); };
        questions["old"] = [=] { return cross({3, 2}); };
        actions["close"] = [this] { Sheet().close(); };
        actions["end"] = [this] { Solver().close(); }; // as the desktop does
        actions["wake"] = [this] {                     // the solver's window
            EXPECT_TRUE(Sheet().isActiveWindow());
            Solver().activateWindow();
            EXPECT_TRUE(QTest::qWaitForWindowActive(&Solver()));
        };
    }

    // Counts what paints the window that it filters.
    bool eventFilter(QObject*, QEvent* event) override {
        m_paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    int m_paints = 0;
};

TEST_F(SolverWindows, ButtonsInTheOrderOfTheirTabs) {
    OpenSolver();
    Find("cmdClearGrid(2)").setFocus();
    Play(
        "| tabs: cmdClearGrid(2) cmdLoadGsp cmdSaveGsp cmdPrintGus cmdMajorOptions optDuct(0) cmdLessDuct(2) "
        "chkLabels chkParam cmdGus cmdClose picGrid\n"
        "@optDuct(0) Right Right | checked optDuct(2): true\n"
        "Tab Tab Tab Tab qxQ | focus: cmdGus; log: call\nTab Tab | cross: whole");
}

TEST_F(SolverWindows, AProjectThatWasOpenAtTheEndIsOfferedAgain) {
    SetStateFolder(File("state"));
    OpenSolver();
    DrawRow("RF");
    EndProgram();
    Play("?Yes");
    OpenSolver();
    Play("| network: R 1,3-2,3 F 2,3-3,3");
    DrawRow("C");
    Play("?No @cmdClose"); // which ends the keeping, in the background
    EXPECT_TRUE(QTest::qWaitFor([this] { return fs::is_empty(File("state")); }, 60'000));
    SetStateFolder("");
}

// Labels and sheet, a duct removed and another duct on the sheet end a chain. A solved project takes nothing,
// nor forgets.
TEST_F(SolverWindows, DrawingByTheMouse) {
    OpenSolver();
    Play(R"(#m1,1 #m2,3 #r #3,1 #4,1 | network: R 1,1-2,3 R 3,1-4,1; holds: a point
        @optDuct(1) #5,1 @optDuct(2) #5,1 | network: R 1,1-2,3 R 3,1-4,1 F 4,1-5,1 C 5,1-5,1; holds: a point
        @cmdLessDuct(2) @cmdLessDuct(2) | network: R 1,1-2,3 R 3,1-4,1; holds: nothing
        #1,1 @chkLabels | holds: nothing
        #1,1 @chkParam | holds: nothing
        #1,1 @next | network: R 1,1-2,3 R 3,1-4,1; holds: nothing)");
    DrawPending = Solved = kFlagSet;
    desktop.Log.clear();
    Play(R"(#2,1 #r @cmdSaveGsp @cmdLessDuct(2) | log: beep, beep, beep, beep
        | network: R 1,1-2,3 R 3,1-4,1; holds: a point)");
}

TEST_F(SolverWindows, DrawingByTheKeyboardAndItsColours) {
    OpenSolver();
    Play(R"(#3,2 | cross: nothing
        @chkLabels Tab Tab Tab Tab | focus: picGrid; cross: whole
        Tab | cross: nothing
        Shift+Tab | cross: whole
        @chkLabels #3,2 | cross: nothing
        Right Left | cross: whole
        Right | cross: whole; old: nothing
        Left Ctrl+Right Space Escape Home Return PgDown Return | network: R 3,2-8,2 R 0,2-0,30
        ?Yes @cmdClearGrid(2))");
    DrawRow("RFC");
    Play(R"(| colours: #ff0000#0000ff#ffff00
        @chkParam | colours: #00ff00#0000ff#ffff00
        @next | colours: #ff0000#00ff00#ffff00
        #r @txtParam(1) !wake | cross: nothing
        @chkParam | colours: #ff0000#0000ff#ffff00)"); // the duct of the sheet is green
}

// However a picture came about, it is the one that its network gives when it is painted in one go.
TEST_F(SolverWindows, PaintingInStepsIsPaintingInOneGo) {
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

TEST_F(SolverWindows, TheSheetShowsEachTypeAndStaysWhereTheUserPutsIt) {
    OpenSolver();
    DrawRow("RFC");
    const QPoint screen = Solver().screen()->geometry().topLeft();
    Solver().move(screen + QPoint(0, 30));
    Play("@chkParam");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Sheet()));
    EXPECT_EQ(Sheet().frameGeometry().topRight() - screen, QPoint(786, 30 + (500 + 400) / 15));
    EXPECT_EQ(Sheet().windowHandle()->transientParent(), Solver().windowHandle());
    const QPoint dragged = Sheet().pos() - QPoint(100, -50);
    Sheet().move(dragged);
    Play(R"(| duct: 1 #008000; looks: olooooll
        @next @next | duct: C3 #ffff00; looks: llloollo
        @cmdLessDuct(2) | duct: F2 #0000ff)"); // the duct it showed is gone; 1 where 1 stood is no change
    Duct(1).Colour = 7;                        // as a damaged file may have it: no letter
    Play("@back | duct: 1 #070000\n@chkParam @chkParam");
    EXPECT_EQ(Sheet().pos(), dragged);
    for (const std::string caption : {"R99", "R100"}) {
        Sheet().SetDuctNoCaption(caption);
        Play(std::string("| visible lblDuct: ") + (caption == "R99" ? "true" : "false"));
    }
}

TEST_F(SolverWindows, TabsArrowsAndEnterOnTheSheet) {
    OpenSheet("RR");
    Play(R"(@txtParam(1) Tab | selected: txtParam(2) 0
        Up | selected: txtParam(1) 0
        Up | selected: txtParam(1) 0
        Down | selected: txtParam(2) 0
        Return Enter | selected: txtParam(4) 0
        Tab Down | selected: txtParam(6) 0
        Return Return | selected: txtParam(8) 0
        Down | selected: txtParam(8) 0
        Return Escape | focus: txtParam(8)
        Tab | focus: chkFollowOn
        Alt+F | checked chkFollowOn: false
        Tab | focus: scrDuctNo
        Right | duct: R2 #ff0000
        Left | duct: R1 #ff0000
        Tab | selected: txtParam(1) 0)");
}

// Text typed into a box goes into the record of the duct that it was typed for, and before the click that
// takes the focus away does its work.
TEST_F(SolverWindows, TheSheetStoresBeforeTheClickThatTakesTheFocus) {
    for (const std::string wake : {"", "!wake "}) { // it may become active first
        OpenSheet("RRR");
        Play("@chkFollowOn txtParam(1)=111 @next | flows: 111 0 0; sheet: 0 0 0 0 0 0 0 0\ntxtParam(1)=222 " +
             wake + "?=plant.gsp ?Ok @cmdSaveGsp | flows: 111 222 0\ntxtParam(1)=223 " + wake +
             "#7,7 | flows: 111 223 0\n#8,7 | flows: 111 223 0 0; duct: R2 #ff0000\ntxtParam(1)=224 " + wake +
             "@cmdLessDuct(2) | flows: 111 224 0");
        EXPECT_NE(ReadFile(File("plant.gsp")).find("\r\n222\r\n"), std::string::npos);
        EndProgram();
    }
    OpenSheet("RCRF"); // Escape brings back what was stored
    Play(R"(@txtParam(1) 250 | flows: 0 0 0 0
        ?Cancel !end | flows: 250 0 250 250; visible picGrid: true
        txtParam(3)=12,5x Escape | sheet: 250 0 0 0 0 0 0 0
        @txtParam(1) 9 !close | flows: 9 0 9 9; checked chkParam: false)");
}

// The results of the first run are the caps of the second; the report is an open project. Files have a point
// in every locale.
TEST_F(SolverWindows, ASecondRunAfterAFailedOne) {
    SetNumberLocale({",", "."});
    OpenSheet("RRR");
    Play(R"(?Cancel @cmdGus ?Ok ?- @cmdGus ?Ok ?=no/such/folder/plant.gsp @cmdGus | looks: olooooll
        txtParam(1)=100 Return Return 200 Return 5000 Return 5 Return 0,8 Return @chkFollowOn
        @next txtParam(6)=0 ?Ok ?=plant.gsp ?Ok ?Ok @cmdGus | duct: R2 #ff0000; visible cmdCalcPressure: false)");
    EXPECT_EQ(desktop.LastText(), "Unexpected zero value encountered.  Solution incomplete.");
    EXPECT_FALSE(fs::exists(File("plant.Gus")));
    Play(R"(txtParam(6)=0,8 ?Ok ?=plant.gsp ?Ok ?Ok @cmdGus | sheet: 100 200 200 5000 2,63 0,45 225 0
        @next | sheet: 100 175 200 5000 3,03 0,63 225 0
        ?Yes ?=plant.Gus @cmdLoadGsp | looks: olooooll; sheet: 100 200 200 5000 2,63 0,45 225 0
        ?<3 ?No @cmdCalcPressure)");
    EXPECT_TRUE(desktop.LastText().starts_with("Total Pressure is 3 Pa."));
}

// A screen shows some sixty pictures a second.
TEST_F(SolverWindows, ARunPaintsTheSheetAtMostOnceAFrame) {
    OpenSheet(std::string(30, 'R'));
    Play("txtParam(1)=100 Return Return 200 Return 5000 Return 5 Return 0.8 Return");
    Sheet().installEventFilter(this);
    QElapsedTimer time;
    time.start();
    Play("?Ok ?=plant.gsp ?Ok ?Ok @cmdGus");
    EXPECT_LE(m_paints, time.elapsed() / 17 + 2);
    m_paints = 0;
    EXPECT_TRUE(QTest::qWaitFor([this] { return Sheet().Repaint(), m_paints > 1; }));
}

// Text that is typed goes back on its own; then come the steps of both windows. A chain ends with one.
TEST_F(SolverWindows, UndoOfDrawingTypingAndFollowOn) {
    OpenSheet("RFR");
    Play(R"(txtParam(1)=100 Return @next txtParam(1)=200 Return Return @next txtParam(3)=300
        Tab | state: 100 200 200 , R3 200; text txtParam(3): 300
        txtParam(1)=7x Tab | text txtParam(1): 7x
        Ctrl+Z | state: 100 200 200 , R3 200; text txtParam(3): 300
        Ctrl+Z | state: 100 200 200 , R3 200; text txtParam(3): 0
        Ctrl+Z | state: 100 100 100 , F2 100
        Ctrl+Shift+Z | state: 100 200 200 , F2 200
        Ctrl+Z | state: 100 100 100 , F2 100
        Ctrl+Z | state: 0 0 0 , R1 0
        @txtParam(1) Ctrl+A 55 Ctrl+Y | state: 0 0 0 , R1 55
        Ctrl+Z | state: 0 0 0 , R1 0
        Ctrl+Z | state: 0 0 , R1 0
        #9,9 Ctrl+Z | state: 0 , R1 0; holds: nothing
        Ctrl+Z | state:  , 1 0
        Ctrl+Y | state: 0 , R1 0; looks: olooooll
        #9,9 #9,10 Ctrl+Y | state: 0 0 , R1 0
        @cmdLessDuct(2) Ctrl+Z | state: 0 0 , R2 0
        Ctrl+Y | state: 0 , R1 0
        ?Yes @cmdClearGrid(2) Ctrl+Z | state: 0 , R1 0)");
}

// What a box shows before its duct is loaded, or after the project was cleared, was not typed.
TEST_F(SolverWindows, UndoOnTheSheetShownBeforeTheFirstDuct) {
    OpenSheet("");
    DrawRow("RC");
    Play(R"(| looks: oLooooLo
        Ctrl+Z | state: 0 , 1 0
        Ctrl+Y | state: 0 0 , C2 0
        txtParam(8)=0.5 Return ?Yes @cmdClearGrid(2) | text txtParam(8): 0.5; duct: 1 #008000)");
    DrawRow("R");
    Play(R"(Ctrl+Z | state:  , 1 0
        txtParam(4)=7 Ctrl+Z | state:  , 1 0; text txtParam(4): 0
        Ctrl+Z | state: 0 0 , R1 0
        @next | text txtParam(8): 0.5)");
}

// The sheet is there or not as its button says. A run that stops at duct 2 has solved duct 1.
TEST_F(SolverWindows, UndoOfLoadsSolutionsAndTheirNames) {
    OpenSheet("RR");
    Play(R"(txtParam(1)=100 Return Return 200 Return 5000 Return 5 Return 0.8 Return Return @next
        txtParam(1)=200 Return Return 200 Return 5000 Return 5 Return 0.8 Return Return
        ?Ok ?=plant.gsp ?Ok ?Ok @cmdGus | state: 100 200 plant.gsp solved+, R1 100
        Ctrl+Z | state: 100 200 plant.gsp, R1 100; sheet: 100 0 200 5000 5 0.8 0 0; looks: olooooll
        Ctrl+Y | state: 100 200 plant.gsp solved+, R1 100; looks: LLLLLLLL; text txtParam(2): 175
        ?Yes ?=plant.Gus @cmdLoadGsp | state: 100 200 plant.Gus+, R1 100
        ?Yes ?- @cmdLoadGsp | visible lblValue: false
        Ctrl+Z | state: 100 200 plant.Gus+, R1 100; visible lblValue: true
        Ctrl+Z | state: 100 200 plant.gsp solved+, R1 100
        Ctrl+Z | state: 100 200 plant.gsp, R1 100
        ?Yes @cmdClearGrid(2) ?- @cmdSaveGsp | state:  , 1 0
        Ctrl+Z @next txtParam(6)=0 ?Ok ?=plant.gsp ?Ok ?Ok @cmdGus | text txtParam(6): 0
        Ctrl+Z | state: 100 200 plant.gsp, R1 100; sheet: 100 0 200 5000 5 0.8 0 0
        Ctrl+Z | state: 100 200 plant.gsp, R2 200; text txtParam(6): 0.8)");
}

// A text box copies what is selected in it.
TEST_F(SolverWindows, CopyAndManualByTheirKeys) {
    Desktop().Copy = [&](const ClipboardContent& content) {
        desktop.Log.push_back("copy " + content.Table[0][0] + " of " +
                              std::to_string(content.Table.size() - 1));
    };
    Desktop().OpenManual = [&](const std::string& path, const std::string& anchor) {
        desktop.Log.push_back(fs::path(path).filename().string() + "#" + anchor);
        return true;
    };
    fs::create_directory(File("manual"));
    WriteFile(File("manual/manual.html"), "");
    OpenSolver();
    DrawRow("R"); // the keyboard is on the grid
    Play(R"(Ctrl+C F1 @chkParam txtParam(1)=5 Ctrl+A Ctrl+C F1 | text txtParam(1): 5
        | log: copy Duct of 1, manual.html#solver, manual.html#sheet)");
}

} // namespace

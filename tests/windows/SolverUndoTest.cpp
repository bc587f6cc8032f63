#include "platform/desktop/Clipboard.h"
#include "windows/WindowTest.h"

namespace {

class SolverUndo : public SolverTest {};

TEST_F(SolverUndo, DrawingTypingAndFollowOn) {
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
        Ctrl+Y | state: 100 100 100 , R1 100
        Ctrl+Z | state: 0 0 0 , R1 0)");
    Play(R"(@txtParam(1) Ctrl+A 55 Ctrl+Y | state: 0 0 0 , R1 55
        Ctrl+Z | state: 0 0 0 , R1 0
        Ctrl+Z | state: 0 0 , R1 0
        #9,9 Ctrl+Z | state: 0 , R1 0)");
    EXPECT_EQ(DrawPending, kFlagClear) << "a chain ends with the step back";
    Play(R"(Ctrl+Z | state:  , 1 0
        Ctrl+Z | state:  , 1 0
        Ctrl+Y | state: 0 , R1 0; looks: olooooll
        #9,9 #9,10 Ctrl+Y | state: 0 0 , R1 0
        @cmdLessDuct(2) Ctrl+Z | state: 0 0 , R2 0
        Ctrl+Y | state: 0 , R1 0
        ?Yes @cmdClearGrid(2) Ctrl+Z | state: 0 , R1 0)");
}

// What a box shows before its duct is loaded, or after the project was cleared, was not typed.
TEST_F(SolverUndo, TheSheetShownBeforeTheFirstDuct) {
    OpenSheet("");
    DrawRow("RC");
    Play(R"(Ctrl+Z | state: 0 , 1 0
        Ctrl+Y | state: 0 0 , C2 0
        txtParam(8)=0.5 Return ?Yes @cmdClearGrid(2) | text txtParam(8): 0.5)");
    DrawRow("R");
    Play(R"(Ctrl+Z | state:  , 1 0
        txtParam(4)=7 Ctrl+Z | state:  , 1 0; text txtParam(4): 0
        Ctrl+Z | state: 0 0 , R1 0)");
    EXPECT_EQ(Duct(2).ConnCoefficient, 0.5F);
}

TEST_F(SolverUndo, LoadsSolutionsAndTheirNames) {
    OpenSheet("RR");
    Play(R"(txtParam(1)=100 Return Return 200 Return 5000 Return 5 Return 0.8 Return Return @next
        txtParam(1)=200 Return Return 200 Return 5000 Return 5 Return 0.8 Return Return
        ?Ok ?=plant.gsp ?Ok ?Ok @cmdGus | state: 100 200 plant.gsp solved+, R1 100
        Ctrl+Z | state: 100 200 plant.gsp, R1 100; sheet: 100 0 200 5000 5 0.8 0 0; looks: olooooll
        Ctrl+Y | state: 100 200 plant.gsp solved+, R1 100; looks: LLLLLLLL; text txtParam(2): 175
        ?Yes ?=plant.Gus @cmdLoadGsp | state: 100 200 plant.Gus+, R1 100
        ?Yes ?- @cmdLoadGsp)");
    EXPECT_FALSE(Sheet().isVisible());
    Play("Ctrl+Z | state: 100 200 plant.Gus+, R1 100");
    EXPECT_TRUE(Sheet().isVisible()) << "as the button says";
    // Then a run that stops at duct 2 has solved duct 1.
    Play(R"(Ctrl+Z | state: 100 200 plant.gsp solved+, R1 100
        Ctrl+Z | state: 100 200 plant.gsp, R1 100
        @next txtParam(6)=0 ?Ok ?=plant.gsp ?Ok ?Ok @cmdGus | text txtParam(6): 0
        Ctrl+Z | state: 100 200 plant.gsp, R1 100; sheet: 100 0 200 5000 5 0.8 0 0
        Ctrl+Z | state: 100 200 plant.gsp, R2 200; text txtParam(6): 0.8)");
}

TEST_F(SolverUndo, CopyAndManualByTheirKeys) {
    std::string copied;
    std::string opened;
    Desktop().Copy = [&](const ClipboardContent& content) { copied += TabSeparated(content.Table); };
    Desktop().OpenManual = [&](const std::string& path, const std::string& anchor) {
        opened += path + "#" + anchor + " ";
        return true;
    };
    fs::create_directory(File("manual"));
    WriteFile(File("manual/manual.html"), "");
    OpenSolver();
    DrawRow("R"); // the keyboard is on the grid
    Play("Ctrl+C F1");
    EXPECT_EQ(copied.substr(0, 9), "Duct\tKind");
    copied.clear();
    Play("@chkParam txtParam(1)=5 Ctrl+A Ctrl+C F1 | text txtParam(1): 5"); // a text box copies what is
                                                                            // selected in it
    EXPECT_EQ(copied, "");
    EXPECT_EQ(opened, File("manual/manual.html#solver ") + File("manual/manual.html#sheet "));
}

} // namespace

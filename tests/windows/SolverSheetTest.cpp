#include "windows/WindowTest.h"

namespace {

class SolverSheet : public SolverTest {
  protected:
    SolverSheet() {
        actions["solver"] = [this] { // becomes active
            EXPECT_TRUE(Sheet().isActiveWindow());
            Solver().activateWindow();
            EXPECT_TRUE(QTest::qWaitForWindowActive(&Solver()));
        };
        actions["end"] = [this] { Solver().close(); }; // as the desktop does
    }
};

TEST_F(SolverSheet, ShowsEachTypeInItsColourAndLocks) {
    OpenSheet("RFC");
    Play(R"(| duct: 1 #008000; looks: olooooll
        @next @next | duct: C3 #ffff00; looks: llloollo
        @cmdLessDuct(2) | duct: F2 #0000ff)"); // the duct it showed is gone; 1 where 1 stood is no change
    Duct(1).Colour = 7;                        // as a damaged file may have it: no letter
    Play("@back | duct: 1 #070000");
}

TEST_F(SolverSheet, StaysOnTopAndWhereTheUserPutsIt) {
    OpenSheet("");
    EXPECT_EQ(Sheet().frameGeometry().topRight(), QPoint(Find("picGrid").width() - 1, (500 + 400) / 15));
    const QPoint dragged = Sheet().pos() - QPoint(100, -50);
    Sheet().move(dragged);
    Play("@chkParam @chkParam");
    EXPECT_EQ(Sheet().pos(), dragged);
}

TEST_F(SolverSheet, TabsArrowsAndEnter) {
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
        Tab | focus: scrDuctNo
        Tab | selected: txtParam(1) 0)");
}

// Text typed into a box goes into the record of the duct that it was typed for, and before the click that
// takes the focus away does its work.
TEST_F(SolverSheet, StoresBeforeTheClickThatTakesTheFocus) {
    for (const std::string leave : {"", "!solver "}) { // that may become active first
        OpenSheet("RRR");
        Find<CheckBox>("chkFollowOn").setChecked(false);
        Play("txtParam(1)=111 @next | flows: 111 0 0; sheet: 0 0 0 0 0 0 0 0\ntxtParam(1)=222 " + leave +
             "?=plant.gsp ?Ok @cmdSaveGsp | flows: 111 222 0\ntxtParam(1)=223 " + leave +
             "#7,7 | flows: 111 223 0\n#8,7 | flows: 111 223 0 0; duct: R2 #ff0000\ntxtParam(1)=224 " +
             leave + "@cmdLessDuct(2) | flows: 111 224 0");
        EXPECT_NE(ReadFile(File("plant.gsp")).find("\r\n222\r\n"), std::string::npos);
        EndProgram();
    }
    OpenSheet("R");
    Play("@txtParam(1) 250 | flows: 0\n?Cancel !end | flows: 250; visible picGrid: true");
}

TEST_F(SolverSheet, FollowOnCopiesToLaterDucts) {
    OpenSheet("RCRF");
    Play("txtParam(1)=250 Return @next @next txtParam(1)=40\n"
         "@next | flows: 250 0 40 40\n" // the loss of focus copies before the next duct is shown
         "Alt+F");
    EXPECT_TRUE(QTest::qWaitFor([this] { return !Find<CheckBox>("chkFollowOn").isChecked(); }));
    Play("@back txtParam(1)=99 Return | flows: 250 0 99 40\n"
         "txtParam(3)=12,5x Escape | flows: 250 0 99 40; sheet: 99 0 0 0 0 0 0 0"); // what was stored is back
}

} // namespace

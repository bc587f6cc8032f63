#include "windows/WindowTest.h"

namespace {

class SolverSheet : public SolverTest {};

TEST_F(SolverSheet, ShowsEachTypeInItsColourAndLocks) {
    OpenSheet("RFC");
    EXPECT_EQ(Ask("duct"), "1 #008000") << "setting 1 where 1 stands is no change";
    EXPECT_EQ(Ask("looks"), "olooooll");
    Play("@next @next | duct: C3 #ffff00; looks: llloollo\n"
         "@cmdLessDuct(2) | duct: F2 #0000ff"); // the duct it showed is gone
    Ducts[1].Colour = 7;                        // as a damaged file may have it: no letter
    Play("@back | duct: 1 #070000");
}

TEST_F(SolverSheet, StaysOnTopAndWhereTheUserPutsIt) {
    OpenSheet("");
    EXPECT_TRUE(Sheet().windowFlags() & Qt::WindowStaysOnTopHint);
    EXPECT_EQ(Sheet().frameGeometry().top(), (500 + 400) / 15);
    EXPECT_EQ(Sheet().frameGeometry().right() + 1, Find("picGrid").width());
    const QPoint dragged = Sheet().pos() - QPoint(100, -50);
    Sheet().move(dragged);
    Play("@chkParam @chkParam");
    EXPECT_EQ(Sheet().pos(), dragged);
}

TEST_F(SolverSheet, TabsArrowsAndEnter) {
    OpenSheet("RR");
    SheetBox(1).setFocus();
    Play(R"(Tab | selected: txtParam(2) 0
        Up | selected: txtParam(1) 0
        Up | selected: txtParam(1) 0
        Down | selected: txtParam(2) 0
        Return Enter | selected: txtParam(4) 0
        Tab Down | selected: txtParam(6) 0
        Return Return | selected: txtParam(8) 0
        Down | selected: txtParam(8) 0
        Return | selected: txtParam(8) 0
        Escape | focus: txtParam(8)
        Tab | focus: chkFollowOn
        Tab | focus: scrDuctNo
        Tab | selected: txtParam(1) 0)");
}

// Text typed into a box goes into the record of the duct that it was typed for, and before the click that
// takes the focus away does its work.
TEST_F(SolverSheet, StoresBeforeTheClickThatTakesTheFocus) {
    for (const bool solverActive : {false, true}) {
        SCOPED_TRACE(solverActive ? "the solver becomes active first" : "the sheet is the active window");
        OpenSheet("RRR");
        const auto leave = [&] {
            EXPECT_TRUE(Sheet().isActiveWindow());
            (solverActive ? static_cast<QWidget&>(Solver()) : Sheet()).activateWindow();
            EXPECT_TRUE(!solverActive || QTest::qWaitForWindowActive(&Solver()));
        };
        Find<CheckBox>("chkFollowOn").setChecked(false);
        Play("txtParam(1)=111 @next | flows: 111 0 0; sheet: 0 0 0 0 0 0 0 0\ntxtParam(1)=222");
        leave();
        Play("?=plant.gsp ?Ok @cmdSaveGsp | flows: 111 222 0\ntxtParam(1)=223");
        EXPECT_NE(ReadFile(File("plant.gsp")).find("\r\n222\r\n"), std::string::npos);
        leave();
        Play("#7,7 | flows: 111 223 0\n#8,7 | flows: 111 223 0 0; duct: R2 #ff0000\ntxtParam(1)=224");
        leave();
        Play("@cmdLessDuct(2) | flows: 111 224 0");
        EndProgram();
    }
    OpenSheet("R"); // closing by the desktop stores, too
    SheetBox(1).setFocus();
    Play("250 | flows: 0\n?Cancel");
    Solver().close();
    EXPECT_EQ(Ask("flows"), "250");
    EXPECT_TRUE(Solver().isVisible());
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

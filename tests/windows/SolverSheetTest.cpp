#include "windows/SolverTest.h"

namespace {

class SolverSheet : public SolverTest {};

std::string Flows() {
    std::string flows;
    for (std::size_t number = 1; number < Ducts.size(); ++number) {
        flows += (number == 1 ? "" : " ") + ShortestText(Ducts[number].Flow);
    }
    return flows;
}

TEST_F(SolverSheet, ShowsEachTypeInItsColourAndLocks) {
    OpenSheet("RFC");
    EXPECT_EQ(DuctNo(), "1 #008000") << "setting 1 where 1 stands is no change";
    EXPECT_EQ(SheetLooks(), "olooooll");
    ScrollOn();
    ScrollOn();
    EXPECT_EQ(DuctNo(), "C3 #ffff00");
    EXPECT_EQ(SheetLooks(), "llloollo");
    ClickOn("cmdLessDuct(2)");
    EXPECT_EQ(DuctNo(), "F2 #0000ff") << "the duct it showed is gone";
    Ducts[1].Colour = 7; // as a damaged file may have it: no letter
    ScrollBack();
    EXPECT_EQ(DuctNo(), "1 #070000");
}

TEST_F(SolverSheet, StaysOnTopAndWhereTheUserPutsIt) {
    OpenSheet("");
    EXPECT_TRUE(Sheet().windowFlags() & Qt::WindowStaysOnTopHint);
    EXPECT_EQ(Sheet().frameGeometry().top(), (500 + 400) / 15);
    EXPECT_EQ(Sheet().frameGeometry().right() + 1, Get("picGrid").width());
    const QPoint dragged = Sheet().pos() - QPoint(100, -50);
    Sheet().move(dragged);
    ClickOn("chkParam");
    ClickOn("chkParam");
    EXPECT_EQ(Sheet().pos(), dragged);
}

TEST_F(SolverSheet, TabsArrowsAndEnter) {
    OpenSheet("RR");
    SheetBox(1).setFocus();
    const std::pair<int, const char*> moves[] = {
        {Qt::Key_Tab, "txtParam(2)"},    {Qt::Key_Up, "txtParam(1)"},     {Qt::Key_Up, "txtParam(1)"},
        {Qt::Key_Down, "txtParam(2)"},   {Qt::Key_Return, "txtParam(3)"}, {Qt::Key_Enter, "txtParam(4)"},
        {Qt::Key_Tab, "txtParam(5)"},    {Qt::Key_Down, "txtParam(6)"},   {Qt::Key_Return, "txtParam(7)"},
        {Qt::Key_Return, "txtParam(8)"}, {Qt::Key_Down, "txtParam(8)"},   {Qt::Key_Return, "txtParam(8)"},
        {Qt::Key_Escape, "txtParam(8)"}, {Qt::Key_Tab, "chkFollowOn"},    {Qt::Key_Tab, "scrDuctNo"},
        {Qt::Key_Tab, "txtParam(1)"}};
    for (const auto& [key, control] : moves) {
        Press(key);
        EXPECT_EQ(Focused(), control);
        if (key != Qt::Key_Escape && Get<QWidget>(control).inherits("QLineEdit")) {
            EXPECT_EQ(Get<TextBox>(control).selectedText(), "0") << control;
        }
    }
}

// Text typed into a box goes into the record of the duct that it was typed for, and before the click that
// takes the focus away does its work.
TEST_F(SolverSheet, StoresBeforeTheClickThatTakesTheFocus) {
    for (const bool solverActive : {false, true}) {
        SCOPED_TRACE(solverActive ? "the solver becomes active first" : "the sheet is the active window");
        OpenSheet("RRR");
        Get<CheckBox>("chkFollowOn").setChecked(false);
        const auto leave = [&] {
            EXPECT_TRUE(Sheet().isActiveWindow());
            (solverActive ? static_cast<QWidget&>(Solver()) : Sheet()).activateWindow();
            EXPECT_TRUE(!solverActive || QTest::qWaitForWindowActive(&Solver()));
        };
        EnterBox(1, "111");
        ScrollOn();
        EXPECT_EQ(Flows(), "111 0 0");
        EXPECT_EQ(SheetTexts(), "0 0 0 0 0 0 0 0");
        EnterBox(1, "222");
        leave();
        desktop.ExpectFile(File("plant.gsp"));
        desktop.ExpectMessage(MessageAnswer::Ok);
        ClickOn("cmdSaveGsp");
        EXPECT_EQ(Flows(), "111 222 0");
        EXPECT_NE(ReadFile(File("plant.gsp")).find("\r\n222\r\n"), std::string::npos);
        EnterBox(1, "223");
        leave();
        ClickGrid(7, 7);
        EXPECT_EQ(Flows(), "111 223 0");
        ClickGrid(8, 7);
        EXPECT_EQ(Flows(), "111 223 0 0");
        EXPECT_EQ(DuctNo(), "R2 #ff0000") << "the sheet stays on its duct";
        EnterBox(1, "224");
        leave();
        ClickOn("cmdLessDuct(2)");
        EXPECT_EQ(Flows(), "111 224 0");
        EndProgram();
    }
}

TEST_F(SolverSheet, ClosingByTheDesktopStoresWhatIsBeingTyped) {
    OpenSheet("R");
    SheetBox(1).setFocus();
    Type("250");
    EXPECT_EQ(Duct(1).Flow, 0);
    desktop.ExpectMessage(MessageAnswer::Cancel);
    Solver().close();
    EXPECT_EQ(Duct(1).Flow, 250);
    EXPECT_TRUE(Solver().isVisible());
}

TEST_F(SolverSheet, FollowOnCopiesToLaterDucts) {
    OpenSheet("RCRF");
    EnterBox(1, "250");
    Press(Qt::Key_Return);
    ScrollOn();
    ScrollOn();
    EnterBox(1, "40");
    ScrollOn(); // the loss of focus copies before the next duct is shown
    EXPECT_EQ(Flows(), "250 0 40 40");
    Press(Qt::Key_F, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !Get<CheckBox>("chkFollowOn").isChecked(); }));
    ScrollBack();
    EnterBox(1, "99");
    Press(Qt::Key_Return);
    EXPECT_EQ(Flows(), "250 0 99 40");
}

TEST_F(SolverSheet, EscapeBringsBackWhatWasStored) {
    OpenSheet("RR");
    EnterBox(1, "100");
    EnterBox(3, "12,5x");
    EXPECT_EQ(Flows(), "100 100");
    Press(Qt::Key_Escape);
    EXPECT_EQ(SheetTexts(), "100 0 0 0 0 0 0 0");
}

} // namespace

#include "windows/SolverTest.h"

#include <QApplication>

namespace plenair {
namespace {

class SolverSheet : public SolverTest {
  protected:
    // The solver with a row of ducts and the sheet on the first of them.
    void Open(const std::string& types) {
        OpenSolver();
        DrawRow(3, types);
        ShowSheet();
    }

    void TickFollowOn(bool on) const {
        if (Get<CheckBox>("chkFollowOn").isChecked() != on) {
            ClickOn("chkFollowOn");
        }
    }

    static DuctRecord& Duct(int number) { return Ducts[static_cast<std::size_t>(number)]; }

    static std::string Flows() {
        std::string flows;
        for (int number = 1; number <= DuctCount; ++number) {
            flows += number == 1 ? "" : " ";
            flows += ShortestText(Duct(number).Flow);
        }
        return flows;
    }
};

TEST_F(SolverSheet, StandsAboveTheTopRightCornerOfTheGrid) {
    OpenSolver();
    EXPECT_FALSE(Sheet().isVisible());
    ClickOn("chkParam"); // of an empty project
    EXPECT_TRUE(Sheet().isVisible());
    EXPECT_EQ(Sheet().windowTitle(), "Duct Parameters");
    EXPECT_TRUE(Sheet().windowFlags() & Qt::WindowStaysOnTopHint);
    EXPECT_EQ(Sheet().frameGeometry().top(), (500 + 400) / 15);
    EXPECT_NEAR(Sheet().frameGeometry().right() + 1, Solver().GridWidth() / 15, 1);
    EXPECT_EQ(DuctNo(), "1 #008000");
    EXPECT_EQ(SheetTexts(), "       ");
    EXPECT_EQ(SheetLooks(), "oLooooLo");
    QTest::qWait(50); // the desktop may still be putting it in its place
    const QPoint dragged = Sheet().pos() - QPoint(100, -50);
    Sheet().move(dragged);
    ClickOn("chkParam");
    ClickOn("chkParam");
    EXPECT_EQ(Sheet().pos(), dragged) << "it stays where the user has put it";
    Sheet().close(); // by its frame, where the desktop offers that
    EXPECT_FALSE(Sheet().isVisible());
    EXPECT_FALSE(Get<ToggleButton>("chkParam").IsOn());
}

TEST_F(SolverSheet, ShowsEachTypeInItsColourAndLocks) {
    Open("RFC");
    EXPECT_EQ(DuctNo(), "1 #008000") << "setting 1 where 1 stands is no change";
    EXPECT_EQ(SheetTexts(), "0 0 0 0 0 0 0 0");
    EXPECT_EQ(SheetLooks(), "olooooll");
    ScrollOn();
    EXPECT_EQ(DuctNo(), "F2 #0000ff");
    EXPECT_EQ(SheetLooks(), "olooooll");
    ScrollOn();
    EXPECT_EQ(DuctNo(), "C3 #ffff00");
    EXPECT_EQ(SheetLooks(), "llloollo");
    ScrollBack();
    ScrollBack();
    EXPECT_EQ(DuctNo(), "R1 #ff0000");
    Solved = FlagSet;
    ScrollOn();
    EXPECT_EQ(SheetLooks(), "LLLLLLLL") << "a clean table";
}

TEST_F(SolverSheet, TabsArrowsAndEnter) {
    Open("RR");
    SheetBox(1).setFocus();
    const std::string stops[] = {"txtParam(1)", "txtParam(2)", "txtParam(3)", "txtParam(4)", "txtParam(5)",
                                 "txtParam(6)", "txtParam(7)", "txtParam(8)", "chkFollowOn", "scrDuctNo"};
    for (const std::string& stop : stops) {
        EXPECT_EQ(Focused(), stop);
        Press(Qt::Key_Tab);
    }
    EXPECT_EQ(Focused(), "txtParam(1)");
    const std::pair<int, const char*> moves[] = {
        {Qt::Key_Up, "txtParam(1)"},     {Qt::Key_Down, "txtParam(2)"}, {Qt::Key_Return, "txtParam(3)"},
        {Qt::Key_Enter, "txtParam(4)"},  {Qt::Key_Up, "txtParam(3)"},   {Qt::Key_Down, "txtParam(4)"},
        {Qt::Key_Down, "txtParam(5)"},   {Qt::Key_Down, "txtParam(6)"}, {Qt::Key_Return, "txtParam(7)"},
        {Qt::Key_Return, "txtParam(8)"}, {Qt::Key_Down, "txtParam(8)"}, {Qt::Key_Return, "txtParam(8)"},
        {Qt::Key_Escape, "txtParam(8)"}, {Qt::Key_Up, "txtParam(7)"},
    };
    for (const auto& [key, box] : moves) {
        Press(key);
        EXPECT_EQ(Focused(), box);
        if (std::string(box) != "txtParam(8)") {
            EXPECT_EQ(static_cast<TextBox*>(QApplication::focusWidget())->selectedText(), "0");
        }
    }
}

// Text typed into a box goes into the record of the duct that it was typed for, and before the click that
// takes the focus away does its work.
TEST_F(SolverSheet, StoresBeforeTheClickThatTakesTheFocus) {
    for (const bool solverActive : {false, true}) {
        SCOPED_TRACE(solverActive ? "the solver becomes active first" : "the sheet is the active window");
        Open("RRR");
        TickFollowOn(false);
        const auto leave = [&] {
            EXPECT_TRUE(Sheet().isActiveWindow());
            if (solverActive) {
                Solver().activateWindow();
                EXPECT_TRUE(QTest::qWaitForWindowActive(&Solver()));
            }
        };
        EnterBox(1, "111");
        EXPECT_EQ(Flows(), "0 0 0");
        ScrollOn();
        EXPECT_EQ(Flows(), "111 0 0");
        EXPECT_EQ(SheetTexts(), "0 0 0 0 0 0 0 0");

        EnterBox(1, "222");
        leave();
        desktop.ExpectFile(File("plant.gsp"));
        desktop.ExpectMessage(MessageAnswer::Ok);
        ClickOn("cmdSaveGsp");
        EXPECT_EQ(Flows(), "111 222 0");
        EXPECT_NE(ReadFile(File("plant.gsp")).find("\r\n222\r\n"), std::string::npos)
            << "the file has it already";

        EnterBox(1, "223");
        leave();
        ClickGrid(7, 7);
        EXPECT_EQ(Flows(), "111 223 0");
        ClickGrid(8, 7);
        EXPECT_EQ(Flows(), "111 223 0 0");
        EXPECT_EQ(Get<ScrollBar>("scrDuctNo").maximum(), 4);
        EXPECT_EQ(DuctNo(), "R2 #ff0000") << "the sheet stays on its duct";

        EnterBox(1, "224");
        leave();
        ClickOn("cmdLessDuct(2)");
        EXPECT_EQ(Flows(), "111 224 0");
        Solved = FlagSet;
        ClickOn("cmdClose");
        EndProgram();
    }
}

TEST_F(SolverSheet, FollowOnCopiesToLaterDucts) {
    Open("RCRF");
    TickFollowOn(true);
    EnterBox(1, "250");
    Press(Qt::Key_Return);
    EXPECT_EQ(Flows(), "250 0 250 250");
    ScrollOn();
    ScrollOn();
    EnterBox(1, "40");
    EXPECT_EQ(Flows(), "250 0 250 250");
    ScrollOn(); // the loss of focus copies before the next duct is shown
    EXPECT_EQ(Flows(), "250 0 40 40");
    EXPECT_EQ(SheetBox(1).Text(), "40");
    ScrollBack();
    ScrollBack();
    EnterBox(8, "0.5");
    Press(Qt::Key_Up);
    EXPECT_EQ(Duct(2).ConnCoefficient, 0.5F);
    for (int box = 7; box > 1; --box) { // through locked boxes, which copy nothing
        Press(Qt::Key_Up);
    }
    EXPECT_EQ(Focused(), "txtParam(1)");
    Press(Qt::Key_Return);
    EXPECT_EQ(Flows(), "250 0 40 40");

    Press(Qt::Key_F, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !Get<CheckBox>("chkFollowOn").isChecked(); }));
    ScrollBack();
    EnterBox(1, "99");
    Press(Qt::Key_Return);
    EXPECT_EQ(Flows(), "99 0 40 40");
}

TEST_F(SolverSheet, EscapeAndTextThatIsNoNumber) {
    Open("RR");
    TickFollowOn(false);
    EnterBox(1, "100");
    Press(Qt::Key_Escape);
    EXPECT_EQ(SheetTexts(), "0 0 0 0 0 0 0 0");
    EnterBox(1, "100");
    EnterBox(3, "12,5x");
    EnterBox(4, "5000");
    Press(Qt::Key_Return);
    EXPECT_EQ(Duct(1).Flow, 100);
    EXPECT_EQ(Duct(1).Height, 0);
    EXPECT_EQ(Duct(1).Length, 0) << "nothing is stored from the box that is no number on";
    EXPECT_EQ(SheetTexts(), "100 0 12,5x 5000 0 0 0 0");
    EnterBox(3, "");
    ScrollOn();
    ScrollBack();
    EXPECT_EQ(SheetTexts(), "100 0 0 0 0 0 0 0");
    EnterBox(1, "300");
    ClickGrid(7, 7);
    Sheet().activateWindow();
    EnterBox(5, "8");
    Press(Qt::Key_Escape);
    EXPECT_EQ(SheetTexts(), "300 0 0 0 0 0 0 0") << "what lost the focus is stored";
}

TEST_F(SolverSheet, RemovingTheDuctItShows) {
    Open("RFC");
    ScrollOn();
    ScrollOn();
    EXPECT_EQ(DuctNo(), "C3 #ffff00");
    ClickOn("cmdLessDuct(2)");
    EXPECT_EQ(Get<ScrollBar>("scrDuctNo").value(), 2);
    EXPECT_EQ(DuctNo(), "F2 #0000ff");
    EXPECT_EQ(SheetLooks(), "olooooll");
}

TEST_F(SolverSheet, LoadingWhileItIsShown) {
    Open("RFC");
    EnterBox(3, "250");
    desktop.ExpectFile(File("plant.gsp"));
    desktop.ExpectMessage(MessageAnswer::Ok);
    ClickOn("cmdSaveGsp");
    ScrollOn();
    ScrollOn();
    desktop.ExpectMessage(MessageAnswer::Yes);
    desktop.ExpectFile(File("plant.gsp"));
    ClickOn("cmdLoadGsp");
    EXPECT_EQ(DuctCount, 3);
    EXPECT_TRUE(Sheet().isVisible());
    EXPECT_EQ(Get<ScrollBar>("scrDuctNo").value(), 1);
    EXPECT_EQ(SheetTexts(), "0 0 250 0 0 0 0 0");
    EXPECT_EQ(DuctNo().substr(0, 2), "R1");

    desktop.ExpectMessage(MessageAnswer::Yes);
    desktop.ExpectCancel();
    ClickOn("cmdLoadGsp");
    EXPECT_EQ(DuctCount, 0);
    EXPECT_FALSE(Sheet().isVisible()) << "a cancelled load leaves an empty project";
}

} // namespace
} // namespace plenair

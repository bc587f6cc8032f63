#include "core/windows/frmInputs.h"
#include "extras/windows/frmAbout.h"
#include "platform/qt/MessageBoxes.h"
#include "project/model/History.h"
#include "windows/WindowTest.h"

#include <QMessageBox>

namespace {

// Windows that are asked to close when nobody would think of it, as by clicks that queue up.
class Closing : public SolverTest {
  protected:
    Closing() {
        actions["solver"] = [this] { Solver().close(); };
        actions["sheet"] = [this] { Sheet().close(); };
        actions["Lite"] = [this] { Window().close(); };
        actions["No"] = [] { FindWindow<QMessageBox>()->button(QMessageBox::No)->click(); };
        actions["dialog"] = [] { // twice in a row
            QWidget* const dialog = QApplication::activeModalWidget();
            dialog->close();
            dialog->close();
        };
        actions["see"] = [] { EXPECT_TRUE(FindWindow<frmInputs>()->isVisible()) << "its buttons close it"; };
        actions["exit"] = [] { QApplication::exit(); };
        actions["quit"] = [] { QApplication::quit(); };
        for (const std::string name : {"mnuHelpAbout", "mnuEditOptions", "mnuFileExit"}) {
            actions[name] = [=, this] { Find<QAction>(name).trigger(); };
        }
        for (const std::string name : {"cmdClose", "cmdClearGrid(2)", "cmdMajorOptions", "chkLabels"}) {
            actions[name] = [=, this] { Find<Button>(name).click(); };
        }
    }

    void OpenSheetOfTheDesktop() {
        OpenSheet("R");
        Desktop().AskByMessageBox = AskByMessageBox; // it is the real one that waits
        dialogsExpected = true;
    }

    // Runs the program until it ends. A step comes while the one before may wait still.
    void Run(const std::string& script) {
        std::istringstream steps(script);
        const std::function<void()> post = [&] {
            if (std::string step; steps >> step) {
                QMetaObject::invokeMethod(
                    qApp, [&, step] { post(), actions.at(step)(); }, Qt::QueuedConnection);
            }
        };
        post();
        QApplication::exec();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

TEST_F(Closing, ASolvedProjectTwiceInARowOrWithItsSheet) {
    for (const char* steps : {"!solver !solver", "!solver !sheet", "!sheet !solver", "!cmdClose !cmdClose"}) {
        OpenSheetOfTheDesktop();
        Solved = kFlagSet; // closing asks nothing
        Play(steps);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(!SolverIsThere() && Window().isVisible()) << steps;
        EXPECT_EQ(HistoryBytes(), 0U);
        EndProgram();
    }
}

TEST_F(Closing, WhileAQuestionWaitsNothingElseCloses) {
    OpenSheetOfTheDesktop();
    Run("solver solver sheet dialog exit");
    EXPECT_TRUE(Solver().isVisible() && Sheet().isVisible()) << "closing the question is a Cancel";
    Run("solver No exit");
    EXPECT_FALSE(SolverIsThere());
    Run("mnuHelpAbout dialog exit");
    EXPECT_EQ(FindWindow<frmAbout>(), nullptr);
    Run("mnuEditOptions dialog see exit");
}

// A quit that waits for an answer would last until the test is stopped.
TEST_F(Closing, TheEndOfProgramOrSessionAsksNothing) {
    for (const char* steps :
         {"cmdClose quit", "cmdClearGrid(2) quit", "cmdMajorOptions see quit", "chkLabels quit"}) {
        OpenSheetOfTheDesktop();
        Run(steps);
        EndProgram();
    }
    for (const char* steps : {"mnuHelpAbout quit", "mnuFileExit", "Lite"}) {
        Start();
        Run(steps);
        EndProgram();
    }
}

} // namespace

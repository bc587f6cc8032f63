#include "core/windows/frmInputs.h"
#include "extras/windows/frmAbout.h"
#include "platform/qt/MessageBoxes.h"
#include "windows/WindowTest.h"

#include <QMessageBox>

namespace {

using Step = std::function<void()>;

// Windows that are asked to close when nobody would think of it, as by clicks that queue up.
class Closing : public SolverTest {
  protected:
    void OpenSheetOfTheDesktop() {
        OpenSheet("R");
        Desktop().AskByMessageBox = AskByMessageBox; // it is the real one that waits
        dialogsExpected = true;
    }

    // Runs the program until it ends. A step comes while the one before may wait still.
    static void Run(const std::vector<Step>& steps) {
        std::size_t next = 0;
        const Step post = [&] {
            if (next < steps.size()) {
                QMetaObject::invokeMethod(
                    qApp, [&, step = steps[next++]] { post(), step(); }, Qt::QueuedConnection);
            }
        };
        post();
        QApplication::exec();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    Step m_solver = [this] { Solver().close(); };
    Step m_sheet = [this] { Sheet().close(); };
    Step m_button = [this] { Find<Button>("cmdClose").click(); };
    Step m_end = [] { QApplication::exit(); };
    Step m_about = [this] { Find<QAction>("mnuHelpAbout").trigger(); };
};

TEST_F(Closing, ASolvedProjectTwiceInARowOrWithItsSheet) {
    for (const auto& [first, second] :
         {std::pair(m_solver, m_solver), {m_solver, m_sheet}, {m_sheet, m_solver}, {m_button, m_button}}) {
        OpenSheetOfTheDesktop();
        Solved = kFlagSet; // closing asks nothing
        first();
        second();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(!SolverIsThere() && Window().isVisible());
        EndProgram();
    }
}

TEST_F(Closing, WhileAQuestionWaitsNothingElseCloses) {
    OpenSheetOfTheDesktop();
    Run({m_solver, m_solver, m_sheet, [] { FindWindow<QMessageBox>()->close(); }, m_end});
    EXPECT_TRUE(Solver().isVisible() && Sheet().isVisible()) << "closing the question is a Cancel";
    Run({m_solver, [] { FindWindow<QMessageBox>()->button(QMessageBox::No)->click(); }, m_end});
    EXPECT_FALSE(SolverIsThere());
}

TEST_F(Closing, TheAboutBoxTwiceAndTheOptionsNever) {
    Start();
    const Step closeTwice = [] {
        QWidget* const dialog = QApplication::activeModalWidget();
        dialog->close();
        dialog->close();
    };
    Run({m_about, closeTwice, m_end});
    EXPECT_EQ(FindWindow<frmAbout>(), nullptr);
    Run({[this] { Find<QAction>("mnuEditOptions").trigger(); }, closeTwice,
         [] { EXPECT_TRUE(FindWindow<frmInputs>()->isVisible()); }, m_end});
}

// A quit that waits for an answer would last until the test is stopped.
TEST_F(Closing, ByTheEndOfTheSessionAsksNothing) {
    const Step quit = [] { QApplication::quit(); };
    for (const char* button : {"cmdClose", "cmdClearGrid(2)", "cmdMajorOptions", "chkLabels"}) {
        OpenSheetOfTheDesktop();
        Run({[&] { Find<Button>(button).click(); }, quit});
        EndProgram();
    }
    Start();
    Run({m_about, quit});
}

} // namespace

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
        const std::function<void()> post = [&] {
            if (next < steps.size()) {
                QMetaObject::invokeMethod(
                    qApp, [&, step = steps[next++]] { post(), step(); }, Qt::QueuedConnection);
            }
        };
        post();
        QApplication::exec();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    static void End() { QApplication::exit(); }
};

TEST_F(Closing, ASolvedProjectTwiceInARowOrWithItsSheet) {
    const auto solver = [this] { Solver().close(); };
    const auto sheet = [this] { Sheet().close(); };
    const auto button = [this] { Find<Button>("cmdClose").click(); };
    for (const auto& [first, second] :
         {std::pair<Step, Step>(solver, solver), {solver, sheet}, {sheet, solver}, {button, button}}) {
        OpenSheetOfTheDesktop();
        Solved = kFlagSet; // closing asks nothing
        first();
        second();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_FALSE(SolverIsThere());
        EXPECT_TRUE(Window().isVisible());
        EndProgram();
    }
}

TEST_F(Closing, WhileAQuestionWaitsNothingElseCloses) {
    OpenSheetOfTheDesktop();
    const auto close = [this] { Solver().close(); };
    Run({close, close, [this] { Sheet().close(); }, [] { FindWindow<QMessageBox>()->close(); }, End});
    EXPECT_TRUE(Solver().isVisible() && Sheet().isVisible()) << "closing the question is a Cancel";
    Run({close, [] { FindWindow<QMessageBox>()->button(QMessageBox::No)->click(); }, End});
    EXPECT_FALSE(SolverIsThere());
}

TEST_F(Closing, TheAboutBoxTwiceAndTheOptionsNever) {
    Start();
    const auto closeTwice = [] {
        QWidget* const dialog = QApplication::activeModalWidget();
        dialog->close();
        dialog->close();
    };
    Run({[this] { Find<QAction>("mnuHelpAbout").trigger(); }, closeTwice, End});
    EXPECT_TRUE(FindWindow<frmAbout>() == nullptr || !FindWindow<frmAbout>()->isVisible());
    Run({[this] { Find<QAction>("mnuEditOptions").trigger(); }, closeTwice,
         [] { EXPECT_TRUE(FindWindow<frmInputs>()->isVisible()); }, End});
}

// A quit that waits for an answer would last until the test is stopped.
TEST_F(Closing, ByTheEndOfTheSessionAsksNothing) {
    const auto quit = [] { QApplication::quit(); };
    for (const char* button : {"cmdClose", "cmdClearGrid(2)", "cmdMajorOptions", "chkLabels"}) {
        OpenSheetOfTheDesktop();
        Run({[&] { Find<Button>(button).click(); }, quit});
        EndProgram();
    }
    Start();
    Run({[this] { Find<QAction>("mnuHelpAbout").trigger(); }, quit});
}

} // namespace

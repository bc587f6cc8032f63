#include "core/windows/frmInputs.h"
#include "extras/windows/frmAbout.h"
#include "platform/qt/MessageBoxes.h"
#include "windows/WindowTest.h"

#include <QApplication>
#include <QMessageBox>

namespace {

using Step = std::function<void()>;

// The windows of this kind that can be seen.
template <typename Kind>
std::vector<Kind*> All() {
    std::vector<Kind*> all;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* found = qobject_cast<Kind*>(window); found != nullptr && found->isVisible()) {
            all.push_back(found);
        }
    }
    return all;
}

template <typename Kind>
Kind& TheOne() {
    const auto all = All<Kind>();
    if (all.size() != 1) {
        throw std::runtime_error("not one window of this kind");
    }
    return *all[0];
}

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
        std::function<void(std::size_t)> post = [&](std::size_t number) {
            if (number < steps.size()) {
                QMetaObject::invokeMethod(
                    qApp,
                    [&, number] {
                        post(number + 1);
                        steps[number]();
                    },
                    Qt::QueuedConnection);
            }
        };
        post(0);
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
    Run({close, close, [this] { Sheet().close(); }, [] { TheOne<QMessageBox>().close(); }, End});
    EXPECT_TRUE(Solver().isVisible() && Sheet().isVisible()) << "closing the question is a Cancel";
    Run({close, [] { TheOne<QMessageBox>().button(QMessageBox::No)->click(); }, End});
    EXPECT_FALSE(SolverIsThere());
}

TEST_F(Closing, TheAboutBoxTwiceAndTheOptionsNever) {
    Start();
    Run({[this] { Find<QAction>("mnuHelpAbout").trigger(); },
         [] {
             frmAbout& about = TheOne<frmAbout>();
             about.close();
             about.close();
         },
         End});
    EXPECT_TRUE(All<frmAbout>().empty());
    Run({[this] { Find<QAction>("mnuEditOptions").trigger(); },
         [] {
             frmInputs& options = TheOne<frmInputs>();
             options.close();
             options.close();
             EXPECT_TRUE(options.isVisible());
         },
         End});
}

// A quit that waits for an answer would last until the test is stopped.
TEST_F(Closing, ByTheEndOfTheSessionAsksNothing) {
    const auto quit = [] { QApplication::quit(); };
    const Step waits[] = {
        [this] { Find<Button>("cmdClose").click(); },
        [this] { Find<Button>("cmdClearGrid(2)").click(); },
        [this] { Find<Button>("cmdMajorOptions").click(); },
        [] {},
    };
    for (const Step& wait : waits) {
        OpenSheetOfTheDesktop();
        Run({wait, quit});
        EndProgram();
    }
    Start();
    Run({[this] { Find<QAction>("mnuHelpAbout").trigger(); }, quit});
}

} // namespace

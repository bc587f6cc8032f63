#include "project/Recovery.h"
#include "platform/files/OwnedFile.h"
#include "project/FakeWindows.h"
#include "project/ProjectKeeper.h"
#include "project/model/History.h"

#include <pthread.h>

namespace {

// The commands Open and Crash, Wait, where the program waits for its user, and Second, where a second passes
// and the disk takes what it was given.
class RecoveryTest : public ProjectTest {
  protected:
    RecoveryTest() {
        SetStateFolder(File("state/plenair"));
        Desktop().RunLater = [this](int pause, std::function<void()> action) {
            (pause == 0 ? m_due : m_aSecondLater).push_back(std::move(action));
        };
        Do("Open");
    }
    ~RecoveryTest() override {
        LeaveKept();
        SetStateFolder("");
    }

    void Do(const std::string& step) override {
        if (step == "Open") {
            sheet.visible = false;
            StartProject();
            StartHistory();
            StartKeeping();
            OfferRecovery(windows);
        } else if (step == "Crash") {
            LeaveKept();
            m_due.clear();
            m_aSecondLater.clear();
        } else if (step == "Close") {
            AskBeforeClosing(windows);
            EndKeeping();
        } else if (step == "Wait") {
            Run(m_due);
        } else if (step == "Second") {
            do {
                Run(m_due);
                Run(m_aSecondLater);
            } while (!m_due.empty() || !m_aSecondLater.empty());
        } else {
            ProjectTest::Do(step);
        }
    }
    std::string Ask(const std::string& question) override {
        return question == "files" ? std::to_string(Files().size())
               : question == "due" ? std::to_string(m_due.size())
                                   : ProjectTest::Ask(question);
    }

    static std::vector<std::string> Files() {
        std::vector<std::string> all;
        std::error_code none;
        for (const auto& entry : fs::directory_iterator(StateFolder(), none)) {
            all.push_back(entry.path().string());
        }
        return all;
    }

  private:
    static void Run(std::deque<std::function<void()>>& actions) {
        for (; !actions.empty(); actions.pop_front()) {
            actions.front()();
        }
    }

    std::deque<std::function<void()>> m_due, m_aSecondLater;
};

TEST_F(RecoveryTest, BringsBackEveryBit) {
    Play("#0,0 Second | files: 0");
    Play("#2,0");
    Duct(1).Flow = 100.0 / 3;
    Duct(1).Spare = -0.0F;
    ProjectName = "plän.gsp"; // one byte more than a word of the file
    Settings.DefPath = File("");
    Solved = kFlagSet;
    solver.pressureVisible = true;
    NoteStep(windows);
    const ProjectState held = NotedState();
    Play("Second | files: 1");
    EXPECT_TRUE(FilesLeftBehind(StateFolder(), "").empty()) << "its process lives";
    Settings.DefPath = "/";
    solver.pressureVisible = false;
    Play("Crash ?Yes Open | sheet: 33.3333333333333 0 0 0 0 0 0 0");
    EXPECT_TRUE(NotedState() == held);
    EXPECT_TRUE(solver.pressureVisible);
    EXPECT_EQ(Settings.DefPath + sheet.caption, File("R1"));
    // What was before the crash is no step. The project is this process's now, kept from the first moment on.
    Play("Undo | state: 1 of plän.gsp, solved, sheet; files: 1");
    Solved = kFlagClear;
    NoteStep(windows);
    // A close by the user leaves nothing, unless the save that he wants before it fails, which no message
    // says.
    Play(R"(?Yes ?=nowhere/x.gsp Close ?Yes Open | state: 1 of x.gsp, sheet
            ?Yes ?- Close | files: 0
            Open #0,0 #2,0 #4,0 Less Undo | state: 2, sheet
            Less Second ?=y.gsp ?Ok Save Second Crash ?Yes Open | state: 1 of y.gsp, sheet
            ?Yes ?=x.gsp ?Ok Close | files: 0
            Open ?=y.gsp Load Undo | state: 0, sheet)");
}

// Each second at most, and only from one whole state to the next.
TEST_F(RecoveryTest, WritesAtMostOnceASecond) {
    Play(R"(#0,0 #2,0 Wait #4,0 #6,0 | due: 0
            Wait Crash ?Yes Open | state: 1, sheet
            #2,0 #4,0 ?Yes)");
    // A cancelled load empties the project, but only at its end.
    Desktop().ShowDialog = [this](DialogKind, CommonDialog&) {
        Play("Second | files: 1");
        return false;
    };
    Play(R"(Load Second | files: 0
            Undo Second Crash ?No Open | state: 0; files: 1
            Wait | files: 0)"); // until then the program may be on its way to its end
}

// Nobody waits for a write that runs while the solver closes, but the end of the program.
TEST_F(RecoveryTest, NothingStaysBehindAWriteThatStillRuns) {
    const auto closeAndEnd = [this] {
        AddDucts(kMostDucts);
        NoteStep(windows);
        Play("Wait");
        EndKeeping();
        std::exit(0);
    };
    EXPECT_EXIT(closeAndEnd(), testing::ExitedWithCode(0), "");
    Play("| files: 0");
}

TEST_F(RecoveryTest, WritesWhereNoThreadCanBeStarted) {
    pthread_attr_t usual, endless;
    pthread_getattr_default_np(&usual);
    pthread_attr_init(&endless);
    pthread_attr_setstacksize(&endless, std::size_t{1} << 46);
    pthread_setattr_default_np(&endless);
    Play("#0,0 #2,0 Second | files: 1");
    pthread_setattr_default_np(&usual);
}

TEST_F(RecoveryTest, DiscardsWhatCantBeRead) {
    Play("#0,0 #2,0 Second");
    const std::string path = Files().at(0);
    const std::string whole = ReadFile(path);
    Play("Crash");
    std::vector<std::string> damaged{"", "x", whole + "12345678", std::string(16'777'216, '\0'),
                                     std::string(16'777'217, '\0')};
    for (std::size_t at = 0; at < whole.size(); at += 7) {
        damaged.push_back(whole.substr(0, at));
        damaged.push_back(whole);
        damaged.back()[at] = static_cast<char>(whole[at] ^ 1);
    }
    for (const std::string& content : damaged) {
        WriteFile(path, content);
        Play("?Ok Open | state: 0; files: 0");
        const std::string reason = content.size() > 16'777'216 ? ": File too large" : ": Damaged";
        EXPECT_EQ(desktop.LastText(), "Plenair was not closed properly, and the project it held can't be "
                                      "restored.\n\n" +
                                          path + reason);
    }
    EXPECT_EQ(desktop.Messages().back().Title, "Project Solver");
    WriteFile(path, whole);
    WriteFile(path + "-other.recovery", damaged.back());
    fs::last_write_time(path, fs::file_time_type::clock::now() - std::chrono::hours(1));
    Play("?Ok ?Yes Open | state: 1, sheet"); // the newer one comes first
}

} // namespace

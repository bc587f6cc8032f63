#include "project/Recovery.h"
#include "platform/files/OwnedFile.h"
#include "project/CalculateMajorStuff.h"
#include "project/FakeWindows.h"
#include "project/ProjectFiles.h"
#include "project/ProjectKeeper.h"
#include "project/UndoRedo.h"
#include "project/model/History.h"

namespace {

class RecoveryTest : public ProjectTest {
  protected:
    RecoveryTest() {
        SetStateFolder(File("state/plenair"));
        Desktop().RunLater = [this](int pause, std::function<void()> action) {
            if (pause == 0) {
                m_due.push_back(std::move(action));
            } else {
                m_aSecondLater = std::move(action);
            }
        };
        Open();
    }
    ~RecoveryTest() override {
        LeaveKept();
        SetStateFolder("");
    }

    void Open() {
        StartProject();
        StartHistory();
        StartKeeping();
        OfferRecovery(windows);
    }

    // Draws a chain of ducts, each 700 twips long.
    void Draw(int ducts) {
        for (int end = 0; end <= ducts; ++end) {
            Click(100 + 700 * end, 100);
        }
    }

    // The program waits for its user.
    void Wait() {
        for (; !m_due.empty(); m_due.pop_front()) {
            m_due.front()();
        }
    }

    // A second passes, and the disk takes what it was given.
    void PassSecond() {
        Wait();
        while (m_aSecondLater) {
            std::exchange(m_aSecondLater, nullptr)();
        }
    }

    // The program goes, as by a crash.
    void Crash() {
        LeaveKept();
        m_due.clear();
        m_aSecondLater = nullptr;
    }

    std::vector<std::string> Files() const {
        std::vector<std::string> all;
        std::error_code none;
        for (const auto& entry : fs::directory_iterator(StateFolder(), none)) {
            all.push_back(entry.path().string());
        }
        return all;
    }

    std::deque<std::function<void()>> m_due;
    std::function<void()> m_aSecondLater;
};

TEST_F(RecoveryTest, BringsBackEveryBit) {
    Draw(0);
    EXPECT_TRUE(Files().empty());
    Click(800, 100);
    Duct(1).Flow = 100.0 / 3;
    Duct(1).Spare = -0.0F;
    ProjectName = "plänt.gsp";
    Settings.DefPath = File("");
    Solved = kFlagSet;
    solver.pressureVisible = true;
    NoteStep(windows);
    const ProjectState held = NotedState();
    PassSecond();
    ASSERT_EQ(Files().size(), 1U);
    EXPECT_TRUE(FilesLeftBehind(StateFolder(), "").empty()) << "its process lives";
    Crash();
    Settings.DefPath = "/";
    solver.pressureVisible = false;
    desktop.ExpectMessage(MessageAnswer::Yes);
    Open();
    EXPECT_TRUE(NotedState() == held);
    EXPECT_TRUE(solver.pressureVisible);
    EXPECT_EQ(Settings.DefPath, File(""));
    EXPECT_EQ(sheet.caption, "R1");
    EXPECT_EQ(sheet.texts[SheetBox::Flow], "33.3333333333333");
    Undo(windows);
    EXPECT_EQ(DuctCount, 1) << "what was before the crash is no step";
    ASSERT_EQ(Files().size(), 1U) << "the project is this process's now, and kept from the first moment on";
    EndKeeping();
    EXPECT_TRUE(Files().empty());
    Open(); // without a question
}

// Each second at most, and only from one whole state to the next.
TEST_F(RecoveryTest, WritesAtMostOnceASecond) {
    Draw(1);
    Wait();
    ASSERT_TRUE(m_aSecondLater);
    Click(1500, 100);
    Click(2200, 100);
    EXPECT_TRUE(m_due.empty());
    Crash();
    desktop.ExpectMessage(MessageAnswer::Yes);
    Open();
    EXPECT_EQ(DuctCount, 1);
    Click(800, 100);
    Click(1500, 100);
    // A cancelled load empties the project, but only at its end.
    desktop.ExpectMessage(MessageAnswer::Yes);
    Desktop().ShowDialog = [this](DialogKind, CommonDialog&) {
        PassSecond();
        EXPECT_EQ(Files().size(), 1U);
        return false;
    };
    LoadProject(windows);
    PassSecond();
    EXPECT_TRUE(Files().empty()) << "there is nothing to come back to";
    Undo(windows);
    PassSecond();
    Crash();
    desktop.ExpectMessage(MessageAnswer::No);
    Open();
    EXPECT_EQ(DuctCount, 0);
    EXPECT_EQ(Files().size(), 1U) << "the program may be on its way to its end";
    Wait();
    EXPECT_TRUE(Files().empty());
}

TEST_F(RecoveryTest, DiscardsWhatCantBeRead) {
    Draw(1);
    PassSecond();
    const std::string path = Files().at(0);
    const std::string whole = ReadFile(path);
    Crash();
    const auto changed = [&](std::size_t at) {
        std::string content = whole;
        content[at] = static_cast<char>(content[at] ^ 1);
        return content;
    };
    std::vector<std::string> damaged{"", "x", whole + "12345678", std::string(17'000'000, '\0')};
    for (std::size_t at = 0; at < whole.size(); at += 7) {
        damaged.push_back(changed(at));
        damaged.push_back(whole.substr(0, at));
    }
    for (const std::string& content : damaged) {
        WriteFile(path, content);
        desktop.ExpectMessage(MessageAnswer::Ok);
        Open();
        EXPECT_EQ(DuctCount, 0);
        EXPECT_TRUE(
            InWords(desktop.Messages().back())
                .starts_with(
                    "Project Solver: Plenair was not closed properly, and the project it held can't be "
                    "restored.\n\n" +
                    path + ": "));
        EXPECT_TRUE(Files().empty());
    }
    WriteFile(path, whole);
    WriteFile(path + "-other.recovery", changed(60));
    fs::last_write_time(path, fs::file_time_type::clock::now() - std::chrono::hours(1));
    desktop.ExpectMessage(MessageAnswer::Ok); // the newer one
    desktop.ExpectMessage(MessageAnswer::Yes);
    Open();
    EXPECT_EQ(DuctCount, 1);
}

TEST_F(RecoveryTest, AFolderThatTakesNothingIsToldOfOnce) {
    LeaveKept();
    WriteFile(File("file"), "");
    SetStateFolder(File("file/plenair"));
    desktop.ExpectMessage(MessageAnswer::Ok);
    for (int opening = 0; opening < 2; ++opening) {
        Open();
        Draw(1);
        PassSecond();
        EXPECT_EQ(DuctCount, 1);
        EndKeeping();
    }
    EXPECT_EQ(InWords(desktop.Messages().back()),
              "Project Solver: The project can't be kept against a crash or a power cut.\n\n" +
                  File("file/plenair") + ": Not a directory\n\nNothing else is affected. [Ok Exclamation]");
}

} // namespace

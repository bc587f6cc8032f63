#include "project/ProjectKeeper.h"

#include "core/Settings.h"
#include "platform/desktop/Desktop.h"
#include "platform/desktop/MessageBox.h"
#include "platform/files/FileFailure.h"
#include "platform/files/OwnedFile.h"
#include "platform/files/ProgramFolder.h"
#include "project/model/History.h"
#include "project/model/ProjectState.h"

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <system_error>
#include <utility>
#include <vector>

namespace plenair {

namespace {

constexpr int kPause = 1000; // ms

// The file of one opening of the solver. While a write runs, the file belongs to it.
struct Keeper {
    OwnedFile File{StateFolder(), kRecoveryEnding};
    std::future<std::string> Write; // gives why it failed; empty if it didn't
    bool IsWaiting = false;         // for its next turn
    bool HasChanged = false;
};

std::shared_ptr<Keeper> s_keeper; // null while nothing is kept
bool s_told = false;

void TellOnce(const std::string& reason) {
    if (!std::exchange(s_told, true)) {
        ShowMessage({"The project can't be kept against a crash or a power cut.\n\n" + reason +
                         "\n\nNothing else is affected.",
                     kSolverTitle, MessageButtons::Ok, MessageIcon::Exclamation});
    }
}

// On a thread of its own, or here and now where the system has no more of them.
std::future<std::string> InBackground(std::function<std::string()> work) {
    try {
        return std::async(std::launch::async, work);
    } catch (const std::system_error&) {
        std::promise<std::string> done;
        done.set_value(work());
        return done.get_future();
    }
}

bool IsRunning(const std::future<std::string>& write) {
    return write.valid() && write.wait_for(std::chrono::seconds(0)) != std::future_status::ready;
}

// An empty project is nothing to come back to.
void WriteState(OwnedFile& file, const std::string& content) {
    content.empty() ? file.Remove() : file.Write(content);
}

std::string WriteOrReason(OwnedFile& file, const std::string& content) {
    try {
        WriteState(file, content);
        return "";
    } catch (const FileFailure& failure) {
        return failure.what();
    }
}

std::string ContentNow() {
    const ProjectState& state = NotedState();
    return state.Elements.size() > 1 ? KeptContent(state, Settings.DefPath) : std::string();
}

void TakeTurn(const std::weak_ptr<Keeper>& weak) {
    const std::shared_ptr<Keeper> keeper = weak.lock();
    if (keeper == nullptr) {
        return;
    }
    keeper->IsWaiting = false;
    if (!IsRunning(keeper->Write)) {
        const std::string reason = keeper->Write.valid() ? keeper->Write.get() : "";
        if (std::exchange(keeper->HasChanged, false)) {
            keeper->Write = InBackground(
                [&file = keeper->File, content = ContentNow()] { return WriteOrReason(file, content); });
        }
        if (!reason.empty()) {
            TellOnce(reason);
        }
    }
    if (keeper->Write.valid() && !std::exchange(keeper->IsWaiting, true)) {
        RunLater(kPause, [weak] { TakeTurn(weak); });
    }
}

} // namespace

void StartKeeping() {
    if (StateFolder().empty()) {
        return;
    }
    try {
        RequireWritableFolder(StateFolder());
        s_keeper = std::make_shared<Keeper>();
    } catch (const FileFailure& failure) {
        TellOnce(failure.what());
    }
}

void NoteStep(const ProjectWindows& windows, std::int16_t first) {
    if (NoteStep(windows.Solver.IsPressureVisible(), first)) {
        KeepProject();
    }
}

void NoteSaved() {
    NoteName();
    KeepProject();
}

bool KeepAtOnce() {
    if (s_keeper == nullptr) {
        return false;
    }
    if (s_keeper->Write.valid()) {
        s_keeper->Write.wait();
    }
    s_keeper->HasChanged = false;
    return WriteOrReason(s_keeper->File, ContentNow()).empty();
}

void KeepProject() {
    if (s_keeper != nullptr) {
        s_keeper->HasChanged = true;
        if (!std::exchange(s_keeper->IsWaiting, true)) {
            RunLater(0, [weak = std::weak_ptr<Keeper>(s_keeper)] { TakeTurn(weak); });
        }
    }
}

void EndKeeping() {
    const std::shared_ptr<Keeper> keeper = std::exchange(s_keeper, nullptr);
    if (keeper == nullptr) {
        return;
    }
    if (!IsRunning(keeper->Write)) {
        keeper->File.Remove();
        return;
    }
    // The last write may wait for the disk. Here only the removal before this one is waited for; the end of
    // the program waits for all.
    static std::future<std::string> s_removal;
    s_removal = InBackground([keeper] {
        keeper->Write.wait();
        keeper->File.Remove();
        return std::string();
    });
}

void LeaveKept() {
    s_keeper.reset();
}

} // namespace plenair

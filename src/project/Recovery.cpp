#include "project/Recovery.h"

#include "core/Settings.h"
#include "platform/desktop/Desktop.h"
#include "platform/desktop/MessageBox.h"
#include "platform/files/FileFailure.h"
#include "platform/files/OwnedFile.h"
#include "platform/files/ProgramFolder.h"
#include "project/ProjectKeeper.h"
#include "project/UndoRedo.h"
#include "project/model/History.h"
#include "project/model/ProjectState.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace plenair {

namespace {

constexpr std::size_t kLargestFile = 16'777'216;

KeptProject ReadLeft(const LeftFile& file) {
    const std::string content = file.Read(kLargestFile);
    try {
        return ReadKept(content);
    } catch (const ContentFailure& failure) {
        throw FileFailure(file.Path() + ": " + failure.what());
    }
}

// Whether the user wants this project back.
bool WantsRestored() {
    return ShowMessage({"Plenair was not closed properly. Restore the project it held?", kSolverTitle,
                        MessageButtons::YesNo, MessageIcon::Question}) == MessageAnswer::Yes;
}

void Restore(const ProjectWindows& windows, const KeptProject& kept) {
    TakeState(kept.State);
    StartHistory(kept.State.PressureShown);
    std::error_code unknown;
    if (std::filesystem::is_directory(kept.Folder, unknown)) {
        Settings.DefPath = kept.Folder;
    }
    ShowProject(windows, 1, kept.State.PressureShown);
}

// When the program waits for its user again: one that is told to end takes every question for answered with
// No.
void DiscardLater(LeftFile file) {
    RunLater(0, [left = std::make_shared<LeftFile>(std::move(file))] { left->Remove(); });
}

// Gives whether the project of this file has become the project.
bool OfferToRestore(const ProjectWindows& windows, LeftFile& file) {
    KeptProject kept;
    try {
        kept = ReadLeft(file);
    } catch (const FileFailure& failure) {
        file.Remove();
        ShowMessage({"Plenair was not closed properly, and the project it held can't be restored.\n\n" +
                         std::string(failure.what()),
                     kSolverTitle, MessageButtons::Ok, MessageIcon::Exclamation});
        return false;
    }
    if (!WantsRestored()) {
        DiscardLater(std::move(file));
        return false;
    }
    Restore(windows, kept);
    return true;
}

} // namespace

void OfferRecovery(const ProjectWindows& windows) {
    for (LeftFile& file : FilesLeftBehind(StateFolder(), kRecoveryEnding)) {
        if (OfferToRestore(windows, file)) {
            if (KeepAtOnce()) { // at no moment the project is in no file
                file.Remove();
            }
            return;
        }
    }
}

} // namespace plenair

#include "project/ProjectFiles.h"

#include "core/Settings.h"
#include "platform/desktop/CommonDialog.h"
#include "platform/desktop/MessageBox.h"
#include "platform/desktop/Progress.h"
#include "platform/files/FileFailure.h"
#include "platform/files/Folders.h"
#include "platform/files/WholeFiles.h"
#include "platform/text/Utf8.h"
#include "project/DuctSheet.h"
#include "project/ProjectGrid.h"
#include "project/ProjectKeeper.h"
#include "project/model/ProjectBlocks.h"
#include "project/model/ProjectModel.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <filesystem>
#include <system_error>

namespace plenair {

namespace {

CommonDialog& SetUpDialog(const ProjectWindows& windows, int flags, const std::string& fileName) {
    CommonDialog& dialog = windows.Solver.Dialog();
    dialog.Flags = flags;
    dialog.DefaultExt = "gsp";
    dialog.InitDir = Settings.DefPath;
    dialog.FileName = fileName;
    dialog.Filter = "Plenair Projects (*.gsp)|*.gsp|All Files (*.*)|*.*";
    return dialog;
}

// A file and the report of its project may be one and the same: by name, whatever the case, or by a link.
bool IsItsOwnReport(const std::string& file, const std::string& title) {
    const auto sameLetter = [](unsigned char a, unsigned char b) {
        return std::tolower(a) == std::tolower(b);
    };
    const std::string report = ReportName(title);
    if (std::equal(title.begin(), title.end(), report.begin(), report.end(), sameLetter)) {
        return true;
    }
    const std::filesystem::path path(file);
    std::error_code failure;
    return std::filesystem::weakly_canonical(path, failure) ==
               std::filesystem::weakly_canonical(path.parent_path() / report, failure) &&
           !failure;
}

bool UserSavesUnderReportName(const std::string& title) {
    return ShowMessage({"The report of the next solution will be named \"" + ReportName(title) +
                            "\" and replace what is saved as \"" + title +
                            "\" now.\n\nSave the project under this name all the same?",
                        "Save", MessageButtons::YesNo, MessageIcon::Question}) == MessageAnswer::Yes;
}

// Asks for the file until it is one that may be replaced by a report, or no report will have its name.
void ChooseFileToSave(CommonDialog& dialog) {
    dialog.ShowSave();
    while (IsItsOwnReport(dialog.FileName, dialog.FileTitle) && !UserSavesUnderReportName(dialog.FileTitle)) {
        dialog.InitDir = CurrentFolder();
        dialog.FileName = dialog.FileTitle;
        dialog.ShowSave();
    }
}

// Asks for a file and reads it. False after Cancel, or where the file could not be read to its end.
bool ReadChosenFile(const ProjectWindows& windows) {
    try {
        CommonDialog& dialog = SetUpDialog(windows, kPathMustExist, "");
        dialog.ShowOpen();
        ProjectName = dialog.FileTitle;
        ReadProjectText(dialog.FileName,
                        ShowFileProgress("Opening " + Shortened(ProjectName), "Load Project"));
        return true;
    } catch (const DialogCancelled&) {
        StartReading(); // without what has been read so far
        return false;
    } catch (const FileFailure&) {
        return false;
    }
}

enum class SaveEnd { Saved, Cancelled, Failed };

SaveEnd SaveAsChosen(const ProjectWindows& windows) {
    try {
        CommonDialog& dialog = SetUpDialog(windows, kOverwritePrompt, ProjectName);
        ChooseFileToSave(dialog);
        ProjectName = dialog.FileTitle;
        NoteSaved();
        WriteWholeFile(dialog.FileName, ProjectText(),
                       ShowFileProgress("Saving " + Shortened(ProjectName), "Save"));
    } catch (const DialogCancelled&) {
        return SaveEnd::Cancelled;
    } catch (const FileFailure&) {
        return SaveEnd::Failed;
    }
    Settings.DefPath = CurrentFolder();
    ShowMessage({"Plenair Project Saved", "Save", MessageButtons::Ok, MessageIcon::Exclamation});
    RunFailed = kFlagClear;
    return SaveEnd::Saved;
}

} // namespace

bool SaveProject(const ProjectWindows& windows) {
    return SaveAsChosen(windows) == SaveEnd::Saved;
}

bool LoadProject(const ProjectWindows& windows) {
    if (DuctCount > 0) {
        const MessageAnswer answer = ShowMessage(
            {"Clear Existing Project?", "Load Project", MessageButtons::YesNo, MessageIcon::Question});
        if (answer != MessageAnswer::Yes) {
            return false;
        }
    }
    windows.Sheet.Hide();
    windows.Sheet.SetScrollValue(1);
    StartReading();
    const bool readToTheEnd = ReadChosenFile(windows);
    if (DuctCount < 0) {
        EmptyGrid(windows);
        return false;
    }
    windows.Sheet.SetScrollMaximum(std::max<int>(DuctCount, 1));
    if (!readToTheEnd) {
        NoteStep(windows);
        return false;
    }
    Solved = kFlagClear;
    Settings.DefPath = CurrentFolder();
    NoteStep(windows);
    RedrawProject(windows);
    ShowDuctSheet(windows, SheetDuct(windows));
    if (windows.Solver.SheetTicked()) {
        windows.Sheet.Show();
    }
    return true;
}

void WriteSolutionReport() {
    const std::string path = InCurrentFolder(ReportName(ProjectName));
    const std::string text = ProjectText();
    MessageAnswer answer = MessageAnswer::Retry;
    while (answer == MessageAnswer::Retry) {
        try {
            WriteWholeFile(path, text, ShowFileProgress("Writing the solution report", "Solve"));
            return;
        } catch (const DialogCancelled&) {
            return;
        } catch (const FileFailure& failure) {
            answer = ShowMessage({std::string("The solution report can't be written.\n") + failure.what(),
                                  "Solve", MessageButtons::RetryCancel, MessageIcon::Exclamation});
        }
    }
}

std::string ReportName(const std::string& projectName) {
    std::size_t end = projectName.size();
    for (int character = 0; character < 4; ++character) {
        if (end == 0) {
            return projectName + ".Gus";
        }
        do {
            --end;
        } while (end > 0 && IsContinuation(projectName[end]));
    }
    return projectName.substr(0, end) + ".Gus";
}

bool AskBeforeClosing(const ProjectWindows& windows) {
    if (Solved != kFlagClear) {
        return true;
    }
    const MessageAnswer answer = ShowMessage(
        {"Do you wish to save the current project?", "Close Project Solver", MessageButtons::YesNoCancel});
    // The solver closes whatever comes of it.
    if (answer == MessageAnswer::Yes && SaveAsChosen(windows) == SaveEnd::Failed) {
        KeepAtOnce(); // where the disk is full, what was kept before has to do
        LeaveKept();  // the user believes it saved
    }
    return answer != MessageAnswer::Cancel;
}

} // namespace plenair

#pragma once

#include "lite/CalculationLog.h"
#include "platform/files/FileFailure.h"
#include "project/FakeWindows.h"
#include "project/ProjectFiles.h"
#include "project/model/ProjectBlocks.h"
#include "support/LiteArrays.h"

#include <sys/wait.h>
#include <unistd.h>

namespace plenair {

// The work on files as a user does it, in a folder of the test's own: what the dialog is answered with, and
// what the user is told.
class FileWork : public ProjectTest {
  protected:
    FileWork() {
        Desktop().AskByMessageBox = [this](const MessageRequest& request) {
            m_told.push_back(request.Text);
            return request.Buttons == MessageButtons::YesNo ? MessageAnswer::Yes
                                                            : AnswerWhenClosed(request.Buttons);
        };
        Desktop().ShowDialog = [this](DialogKind, CommonDialog& dialog) {
            dialog.FileName = m_chosen;
            return true;
        };
    }

    const std::string& Folder() const { return environment.Folder().Path(); }

    std::set<std::string> Names() const { return environment.Folder().Names(); }
    void RemoveAll() const {
        for (const std::string& name : Names()) {
            fs::remove(File(name));
        }
    }

    // Runs the work in a process of its own and gives how that ended, as waitpid tells it.
    static int InChild(const std::function<bool()>& work) {
        const pid_t child = fork();
        if (child == 0) {
            _exit(work() && !HasFailure() ? 0 : 1);
        }
        int status = 0;
        waitpid(child, &status, 0);
        return status;
    }

    bool Told(const std::string& part) const {
        return !m_told.empty() && m_told.back().find(part) != std::string::npos;
    }

    // Makes a project of so many ducts and gives the text of its file.
    static std::string NewProject(std::int16_t ducts) {
        StartProject();
        DuctCount = ducts;
        FitDucts();
        return ProjectText();
    }

    // All of these give whether the user saw it done.
    bool Save(std::int16_t ducts = 2) {
        NewProject(ducts);
        m_told.clear();
        const bool isSaved = SaveProject(windows);
        EXPECT_EQ(isSaved, Told("Plenair Project Saved"));
        return isSaved;
    }

    bool Load(std::int16_t ducts = 2) {
        StartProject();
        m_told.clear();
        const bool isLoaded = LoadProject(windows);
        EXPECT_GE(DuctCount, 0);
        return isLoaded && DuctCount == ducts;
    }

    bool Record() {
        LogRows.resize(1);
        LogCount = 1;
        m_told.clear();
        RecordLog(m_lite);
        EXPECT_EQ(LogCount == 0, Told("Plenair Minor Calculation Log Saved."));
        return LogCount == 0;
    }

    LiteArrays m_lite;
    std::string m_chosen = File("plant.gsp"); // in the file dialog
    std::vector<std::string> m_told;
};

} // namespace plenair

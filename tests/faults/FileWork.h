#pragma once

#include "core/Settings.h"
#include "lite/CalculationLog.h"
#include "platform/desktop/Desktop.h"
#include "project/FakeWindows.h"
#include "project/ProjectFiles.h"
#include "project/model/ProjectBlocks.h"
#include "support/LiteArrays.h"

#include <filesystem>
#include <set>

namespace plenair {

// The work on files as a user does it, in a folder of the test's own: what the dialog is answered with, and
// what the user is told.
class FileWork : public testing::Test {
  protected:
    FileWork() {
        m_sheet.log = &m_paintings;
        m_sheet.windows = &m_windows;
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

    const std::string& Folder() const { return m_environment.Folder().Path(); }
    std::string Path(const std::string& name) const { return m_environment.Folder().File(name); }

    std::set<std::string> Names() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(Folder())) {
            names.insert(entry.path().filename().string());
        }
        return names;
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
        SaveProject(m_windows);
        return Told("Plenair Project Saved");
    }

    bool Load(std::int16_t ducts = 2) {
        StartProject();
        m_told.clear();
        LoadProject(m_windows);
        EXPECT_GE(DuctCount, 0);
        return DuctCount == ducts;
    }

    bool Record() {
        LogRows.resize(1);
        LogCount = 1;
        m_told.clear();
        RecordLog(m_lite);
        EXPECT_EQ(LogCount == 0, Told("Plenair Minor Calculation Log Saved."));
        return LogCount == 0;
    }

    ScopedDesktop m_desktop;
    ProgramEnvironment m_environment;
    FakeSolver m_solver;
    FakeSheet m_sheet;
    ProjectWindows m_windows{m_solver, m_sheet};
    LiteArrays m_lite;
    std::string m_chosen = Path("plant.gsp"); // in the file dialog
    std::vector<std::string> m_told;

  private:
    std::vector<std::string> m_paintings;
};

} // namespace plenair

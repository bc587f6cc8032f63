#include "support/ScriptedDesktop.h"

#include "core/Settings.h"
#include "core/modRegistry.h"
#include "extras/Misc.h"
#include "platform/files/Folders.h"
#include "platform/files/ProgramFolder.h"
#include "platform/text/NumberText.h"
#include "support/Script.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace plenair {

std::string InWords(const MessageRequest& request) {
    const char* const buttons[] = {"Ok", "OkCancel", "", "YesNoCancel", "YesNo", "RetryCancel"};
    const char* const icons[] = {"", " Critical", " Question", " Exclamation", " Information"};
    return request.Title + ": " + request.Text + " [" + buttons[static_cast<int>(request.Buttons)] +
           icons[static_cast<int>(request.Icon) / 16] + "]";
}

ScriptedDesktop::ScriptedDesktop() : m_folder(CurrentFolder()) {
    Desktop().AskByMessageBox = [this](const MessageRequest& request) {
        static const std::map<std::string, MessageAnswer> s_answers = {{"Ok", MessageAnswer::Ok},
                                                                       {"Cancel", MessageAnswer::Cancel},
                                                                       {"Retry", MessageAnswer::Retry},
                                                                       {"Yes", MessageAnswer::Yes},
                                                                       {"No", MessageAnswer::No}};
        m_messages.push_back(request);
        Log.push_back("message: " + request.Text);
        const auto answer = s_answers.find(Next("OCRYN"));
        return answer != s_answers.end() ? answer->second : AnswerWhenClosed(request.Buttons);
    };
    Desktop().AskByInputBox = [this](const InputRequest& request) {
        Log.push_back("input: " + request.Prompt);
        const std::string answer = Next("<");
        return answer.substr(std::min(answer.size(), std::size_t{1}));
    };
    Desktop().StartProgress = [this, start = Desktop().StartProgress](const ProgressRequest& request) {
        Log.push_back("progress: " + request.Title + ", " + request.Text);
        return start ? start(request) : ProgressStep();
    };
    Desktop().ShowDialog = [this](DialogKind kind, CommonDialog& dialog) { return Show(kind, dialog); };
    Desktop().PlaySound = [this](const std::string&, unsigned) { Log.emplace_back("call"); };
    Desktop().StartEditor = [this](const std::string& path) {
        Log.push_back("editor " + path);
        return true;
    };
    Desktop().Beep = [this] { Log.emplace_back("beep"); };
    Desktop().ShowPointer = [this](MousePointer pointer) {
        Log.emplace_back(pointer == MousePointer::Hourglass ? "hourglass" : "default pointer");
    };
}

ScriptedDesktop::~ScriptedDesktop() {
    EXPECT_EQ(m_script, std::deque<std::string>()) << "something didn't come";
    EnterFolder(m_folder);
}

bool ScriptedDesktop::Expect(const std::string& step, const std::string& folder) {
    if (!step.starts_with('?')) {
        return false;
    }
    const bool isFile = step.starts_with("?=");
    m_script.push_back(isFile ? "=" + (std::filesystem::path(folder) / step.substr(2)).string()
                              : step.substr(1));
    return true;
}

std::string ScriptedDesktop::LogInOneLine() const {
    return Joined(Log, std::identity(), ", ");
}

std::string ScriptedDesktop::Next(const std::string& starts) {
    if (m_script.empty() || m_script.front().find_first_of(starts) != 0) {
        ADD_FAILURE() << "unexpected " << Log.back();
        return {};
    }
    const std::string next = m_script.front();
    m_script.pop_front();
    return next;
}

bool ScriptedDesktop::Show(DialogKind kind, CommonDialog& dialog) {
    m_lastDialog = dialog;
    Log.emplace_back("dialog");
    const bool isPrinter = kind == DialogKind::Printer;
    const std::string answer = Next(isPrinter ? "*-" : "=-");
    if (answer.starts_with('*')) {
        dialog.Copies = std::stoi(answer.substr(1));
    } else if (answer.starts_with('=')) {
        dialog.FileName = answer.substr(1);
    }
    return answer.size() > 1;
}

ProgramEnvironment::ProgramEnvironment() {
    Settings = SettingsRecord();
    Settings.DefPath = m_folder.Path();
    SetNumberLocale({});
    SetProgramFolder(m_folder.Path());
    SetRegistryFile(m_registry.File("registry"));
    SetToday(2026, 11, 24);
    ForgetReminder();
}

ProgramEnvironment::~ProgramEnvironment() {
    Desktop().Clock = {};
    SetNumberLocale({});
}

void ProgramEnvironment::SetToday(int year, int month, int day) {
    Desktop().Clock = [=] { return LocalTime{year, month, day, 10, 20, 30, 0}; };
}

void ProgramEnvironment::NoteReminder() const {
    plenair::NoteReminder();
}

} // namespace plenair

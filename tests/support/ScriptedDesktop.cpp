#include "support/ScriptedDesktop.h"

#include "core/Settings.h"
#include "core/modRegistry.h"
#include "extras/Misc.h"
#include "platform/files/Folders.h"
#include "platform/files/ProgramFolder.h"
#include "platform/text/NumberText.h"

#include <gtest/gtest.h>

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
        m_messages.push_back(request);
        Log.push_back("message: " + request.Text);
        return Next(m_answers, AnswerWhenClosed(request.Buttons));
    };
    Desktop().AskByInputBox = [this](const InputRequest& request) {
        Log.push_back("input: " + request.Prompt);
        return Next(m_inputs, std::string());
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
    EXPECT_TRUE(m_answers.empty() && m_inputs.empty() && m_dialogs.empty()) << "something didn't come";
    EnterFolder(m_folder);
}

bool ScriptedDesktop::Expect(const std::string& step, const TemporaryFolder& folder) {
    static const std::map<std::string, MessageAnswer> s_answers = {{"?Ok", MessageAnswer::Ok},
                                                                   {"?Cancel", MessageAnswer::Cancel},
                                                                   {"?Retry", MessageAnswer::Retry},
                                                                   {"?Yes", MessageAnswer::Yes},
                                                                   {"?No", MessageAnswer::No}};
    if (s_answers.contains(step)) {
        ExpectMessage(s_answers.at(step));
    } else if (step == "?-") {
        ExpectCancel();
    } else if (step.starts_with("?=")) {
        ExpectFile(folder.File(step.substr(2)));
    } else if (step.starts_with("?*")) {
        ExpectPrinter(std::stoi(step.substr(2)));
    } else if (step.starts_with("?<")) {
        ExpectInput(step.substr(2));
    } else {
        return false;
    }
    return true;
}

std::string ScriptedDesktop::LogInOneLine() const {
    std::string line;
    for (const std::string& entry : Log) {
        line += (line.empty() ? "" : ", ") + entry;
    }
    return line;
}

template <typename Item>
Item ScriptedDesktop::Next(std::deque<Item>& script, Item otherwise) {
    if (script.empty()) {
        ADD_FAILURE() << "unexpected " << Log.back();
        return otherwise;
    }
    const Item next = script.front();
    script.pop_front();
    return next;
}

bool ScriptedDesktop::Show(DialogKind kind, CommonDialog& dialog) {
    m_lastDialog = dialog;
    Log.emplace_back("dialog");
    const std::string answer = Next(m_dialogs, std::string());
    if (kind == DialogKind::Printer) {
        dialog.Copies = answer.empty() ? 0 : std::stoi(answer);
    } else if (!answer.empty()) {
        dialog.FileName = answer;
    }
    return !answer.empty();
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
    RegCreateKey(HKEY_CURRENT_USER, kReminderSubKey);
    RegWriteValue(HKEY_CURRENT_USER, kReminderSubKey, kReminderValueName, ReminderMonth(), REG_SZ);
}

} // namespace plenair

#include "support/Scripted.h"
#include "platform/desktop/Desktop.h"

#include "core/Settings.h"
#include "core/modRegistry.h"
#include "platform/files/ProgramFolder.h"
#include "platform/text/NumberText.h"

#include <gtest/gtest.h>

namespace plenair {

ScriptedMessages::ScriptedMessages() {
    Desktop().AskByMessageBox = [this](const MessageRequest& request) {
        m_asked.push_back(request);
        if (m_next == m_answers.size()) {
            ADD_FAILURE() << "unexpected message box: " << request.Text;
            return AnswerWhenClosed(request.Buttons);
        }
        return m_answers[m_next++];
    };
}

ScriptedMessages::~ScriptedMessages() {
    Desktop().AskByMessageBox = {};
    EXPECT_EQ(m_next, m_answers.size()) << "a message box that the test expected did not come";
}

ProgramEnvironment::ProgramEnvironment() {
    Settings = SettingsRecord();
    Settings.DefPath = m_folder.Path();
    SetNumberLocale({});
    SetProgramFolder(m_folder.Path());
    SetRegistryFile(m_registry.File("registry"));
    SetToday(2026, 11, 24);
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

#pragma once

#include "platform/desktop/Clock.h"
#include "platform/desktop/MessageBox.h"
#include "support/TemporaryFolder.h"

#include <string>
#include <vector>

namespace plenair {

// Answers message boxes from a script and remembers what they asked. A box that the script doesn't expect
// fails the test and is closed; answers left over at the end fail it too.
class ScriptedMessages {
  public:
    ScriptedMessages();
    ~ScriptedMessages();

    void Expect(MessageAnswer answer) { m_answers.push_back(answer); }
    const std::vector<MessageRequest>& Asked() const { return m_asked; }
    // Text of the last box; empty if there was none.
    std::string LastText() const { return m_asked.empty() ? std::string() : m_asked.back().Text; }

  private:
    std::vector<MessageAnswer> m_answers;
    std::size_t m_next = 0;
    std::vector<MessageRequest> m_asked;
};

// A program's folder, a registry store and a clock (24 November 2026, 10:20:30) of the test's own; default
// Settings.
class ProgramEnvironment {
  public:
    ProgramEnvironment();
    ~ProgramEnvironment();

    const TemporaryFolder& Folder() const { return m_folder; }
    const std::string& RegistryFolder() const { return m_registry.Path(); }
    void SetToday(int year, int month, int day);

    // Notes the current month as reminded, so that no reminder comes up.
    void NoteReminder() const;

  private:
    TemporaryFolder m_folder;
    TemporaryFolder m_registry;
};

} // namespace plenair

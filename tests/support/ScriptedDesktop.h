#pragma once

#include "platform/desktop/Desktop.h"
#include "support/TemporaryFolder.h"

#include <deque>
#include <string>
#include <vector>

namespace plenair {

// "Title: Text [Buttons Icon]".
std::string InWords(const MessageRequest& request);

// Stands in for the desktop: answers messages, dialogs and input boxes from a script, and notes all that
// reaches it in one log. What the script doesn't expect fails the test and is cancelled; a leftover fails it
// too. At the end the desktop, and the current folder, are what they were.
class ScriptedDesktop {
  public:
    ScriptedDesktop();
    ~ScriptedDesktop();

    // What comes next, as a step of a script: "?Ok" answers a message, "?=name" a file dialog with a file of
    // that folder, "?*2" the print dialog with two copies, "?-" cancels a dialog, "?<text" is for an input
    // box. False for any other step.
    bool Expect(const std::string& step, const std::string& folder = {});

    const std::vector<MessageRequest>& Messages() const { return m_messages; }
    std::string LastText() const { return m_messages.empty() ? "" : m_messages.back().Text; }
    const CommonDialog& LastDialog() const { return m_lastDialog; } // as it stood when it was shown

    // What has reached the desktop: "message: TEXT", "input: PROMPT", "dialog", "editor PATH", "call",
    // "progress: TITLE, TEXT",
    // "beep", "hourglass", "default pointer"; tests of windows add their own.
    std::vector<std::string> Log;
    std::string LogInOneLine() const; // with ", " between

  private:
    // The next answer, without its question mark, if it begins with one of these; else it is empty.
    std::string Next(const std::string& starts);
    bool Show(DialogKind kind, CommonDialog& dialog);

    const ScopedDesktop m_before;
    const std::string m_folder;
    std::deque<std::string> m_script;
    std::vector<MessageRequest> m_messages;
    CommonDialog m_lastDialog;
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

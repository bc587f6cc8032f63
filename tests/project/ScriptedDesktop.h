#pragma once

#include "platform/desktop/CommonDialog.h"
#include "platform/desktop/Desktop.h"
#include "platform/files/Folders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <string>
#include <vector>

namespace plenair {

// Stands in for the desktop: answers messages, dialogs and input boxes from scripts, and notes everything
// that reaches it in one log. What the script doesn't expect fails the test, and so does a leftover.
class ScriptedDesktop {
  public:
    ScriptedDesktop() : m_folder(CurrentFolder()) {
        Desktop().AskByMessageBox = [this](const MessageRequest& request) {
            m_messages.push_back(request);
            Log.push_back("message: " + request.Text);
            return Next(m_answers, AnswerWhenClosed(request.Buttons));
        };
        Desktop().ShowDialog = [this](DialogKind kind, CommonDialog& dialog) { return Show(kind, dialog); };
        Desktop().AskByInputBox = [this](const InputRequest& request) {
            Log.push_back("input: " + request.Prompt);
            return Next(m_inputs, std::string());
        };
        Desktop().Beep = [this] { Log.emplace_back("beep"); };
        Desktop().PlaySound = [this](const std::string&, unsigned) { Log.emplace_back("call"); };
        Desktop().ShowPointer = [this](MousePointer pointer) {
            Log.emplace_back(pointer == MousePointer::Hourglass ? "hourglass" : "default pointer");
        };
    }

    ~ScriptedDesktop() {
        EXPECT_TRUE(m_answers.empty() && m_inputs.empty() && m_files.empty()) << "something didn't come";
        Desktop().AskByMessageBox = {};
        Desktop().ShowDialog = {};
        Desktop().AskByInputBox = {};
        Desktop().Beep = {};
        Desktop().PlaySound = {};
        Desktop().ShowPointer = {};
        EnterFolder(m_folder);
    }
    ScriptedDesktop(const ScriptedDesktop&) = delete;
    ScriptedDesktop& operator=(const ScriptedDesktop&) = delete;

    void ExpectMessage(MessageAnswer answer) { m_answers.push_back(answer); }
    void ExpectInput(const std::string& text) { m_inputs.push_back(text); }
    void ExpectFile(const std::string& path) { m_files.push_back(path); }
    void ExpectPrinter(int copies) { m_files.push_back(std::to_string(copies)); }
    void ExpectCancel() { m_files.emplace_back(); }

    const std::vector<MessageRequest>& Messages() const { return m_messages; }
    std::string LastText() const { return m_messages.empty() ? "" : m_messages.back().Text; }
    const CommonDialog& LastDialog() const { return m_lastDialog; } // as it stood when it was shown
    auto Beeps() const { return std::count(Log.begin(), Log.end(), "beep"); }

    std::vector<std::string> Log;

  private:
    template <typename Item>
    Item Next(std::deque<Item>& script, Item otherwise) {
        if (script.empty()) {
            ADD_FAILURE() << "unexpected " << Log.back();
            return otherwise;
        }
        otherwise = script.front();
        script.pop_front();
        return otherwise;
    }

    bool Show(DialogKind kind, CommonDialog& dialog) {
        m_lastDialog = dialog;
        Log.emplace_back("dialog");
        const std::string answer = Next(m_files, std::string());
        if (kind == DialogKind::Printer) {
            dialog.Copies = answer.empty() ? 0 : std::stoi(answer);
        } else if (!answer.empty()) {
            dialog.FileName = answer;
        }
        return !answer.empty();
    }

    std::deque<MessageAnswer> m_answers;
    std::deque<std::string> m_inputs;
    std::deque<std::string> m_files;
    std::vector<MessageRequest> m_messages;
    CommonDialog m_lastDialog;
    std::string m_folder; // the current folder to return to
};

} // namespace plenair

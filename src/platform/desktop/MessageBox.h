#pragma once

#include <string>

// The message box, as the actions of the program see it.
namespace plenair {

enum class MessageIcon { None = 0, Critical = 16, Question = 32, Exclamation = 48, Information = 64 };
enum class MessageButtons { Ok = 0, OkCancel = 1, YesNoCancel = 3, YesNo = 4, RetryCancel = 5 };
enum class MessageAnswer { Ok = 1, Cancel = 2, Retry = 4, Yes = 6, No = 7 };

struct MessageRequest {
    std::string Text; // plain UTF-8, line feeds break lines
    std::string Title;
    MessageButtons Buttons = MessageButtons::Ok;
    MessageIcon Icon = MessageIcon::None;
};

// Shows the box, waits for its answer and gives it. Closing the box by its frame counts as Cancel where there
// is such a button, else as No, else as OK. Without a desktop the text goes to the error output, and the
// answer is that of a closed box.
MessageAnswer ShowMessage(const MessageRequest& request);

// The answer of a box that is closed without pressing a button.
MessageAnswer AnswerWhenClosed(MessageButtons buttons);

} // namespace plenair

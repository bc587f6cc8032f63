#pragma once

#include "platform/desktop/Desktop.h"
#include "platform/desktop/InputBox.h"
#include "platform/desktop/MessageBox.h"

#include <QWidget>
#include <string>

namespace plenair {

// The desktop's message and input box over the window in use: as wide as their titles at least.
MessageAnswer AskByMessageBox(const MessageRequest& request);
std::string AskByInputBox(const InputRequest& request);

// The pointer over all windows of the program, until it is changed again.
void ShowMousePointer(MousePointer pointer);

// Takes the hourglass away for as long as something waits for the user.
class PointerForTheUser {
  public:
    PointerForTheUser();
    ~PointerForTheUser();
    PointerForTheUser(const PointerForTheUser&) = delete;
    PointerForTheUser& operator=(const PointerForTheUser&) = delete;

  private:
    MousePointer m_before;
};

} // namespace plenair

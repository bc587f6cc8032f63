#pragma once

#include <functional>

class QWidget;

namespace plenair {

// Focus as the program's handlers see it: of all controls in its windows at most one is entered. It was told
// that it got the focus, and will be told when it loses it.
//
// What enters a control, and leaves the one that was entered before:
// - the toolkit moves the focus by Tab, an access key or a press in the active window;
// - a press, or the first key, in a control that wasn't entered though it may have had the keyboard;
// - the program gives the focus (GiveFocus).
// What is neither:
// - another window of the program is shown or woken, in whatever order the window manager likes. The control
//   that gets the keyboard by it waits for a key or press, and so does the leaving of the one that is entered
//   elsewhere; only the form is told.
// - a menu, a message box or another program has the keyboard for a while;
// - a window is hidden, or waits for a dialog of the program. What was entered there still is when it comes
//   back.
//
// In this order, each before the next statement and before the key or press does anything else: LostFocus of
// the one; GotFocus of the form, if the user comes from another; GotFocus of the other. A handler that moves
// the focus on ends the telling; its own move tells of the rest.
class FocusEvents {
  public:
    virtual ~FocusEvents() = default;

    // Runs GotFocus. `byPress`: a mouse button went down here, and its click is still to come.
    virtual void TellGotFocus(bool byPress);
    void TellLostFocus();

    std::function<void()> GotFocus;
    std::function<void()> LostFocus;
};

// Starts the telling; call once, after the application object is made.
void WatchFocus();

// Enters `control`, its window becoming the active one. Nothing happens if it is disabled or not shown.
void GiveFocus(QWidget* control);

} // namespace plenair

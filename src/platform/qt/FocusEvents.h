#pragma once

#include <functional>

class QWidget;

namespace plenair {

// Focus as the program's handlers see it. A control that derives from this one is told when it gets or loses
// the focus among the controls of all windows of the program: first the loss of the one, then the gain of the
// other, before the next statement, and before the click that moved the focus does anything else. A menu, a
// message box or another program taking the keyboard for a while is neither a loss nor a gain.
class FocusEvents {
  public:
    virtual ~FocusEvents() = default;

    // Runs GotFocus, or LostFocus.
    virtual void TellGotFocus() {
        if (GotFocus) {
            GotFocus();
        }
    }
    void TellLostFocus() {
        if (LostFocus) {
            LostFocus();
        }
    }

    std::function<void()> GotFocus;
    std::function<void()> LostFocus;
};

// Starts the telling; call once, after the application object is made.
void WatchFocus();

// The window that a dialog belongs over: the active one, or between two dialogs the one that the focus was in
// last. Null if there is none.
QWidget* WindowInUse();

// Gives `control` the focus, its window becoming the active one. Nothing happens if it is disabled or not
// shown.
void GiveFocus(QWidget* control);

} // namespace plenair

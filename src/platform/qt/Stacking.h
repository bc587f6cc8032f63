#pragma once

class QWindow;

// Which window stands above which. Desktops keep a window above the one that it is transient for, and above
// whatever holds that one up; that is all that is relied on. And which of them has the keyboard then.
namespace plenair {

// From now on a dialog stands above the window that it belongs to and above the small windows that belong
// there too, such as the sheet above the solver, also when the user clicks on these. Call once.
void KeepDialogsAbove();

// From now on a window that is hidden before the desktop gives it the keyboard isn't taken for the one that
// has it. Call once.
void AwaitKeyboard();

// Hides a native window that the desktop has shown although its widget is hidden: a window manager that was
// busy when it heard of both may do so. The toolkit believes it hidden.
void TakeFromScreen(QWindow& window);

// Keeps a window that is about to be shown out of task bars.
void KeepOffTaskBar(QWindow& window);

} // namespace plenair

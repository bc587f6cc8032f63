#pragma once

class QWindow;

// Which window stands above which. Desktops keep a window above the one that it is transient for, and above
// whatever holds that one up; that is all that is relied on.
namespace plenair {

// From now on a dialog stands above the window that it belongs to and above the small windows that belong
// there too, such as the sheet above the solver, also when the user clicks on these. Call once.
void KeepDialogsAbove();

// Keeps a window that is about to be shown out of task bars.
void KeepOffTaskBar(QWindow& window);

} // namespace plenair

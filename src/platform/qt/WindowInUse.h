#pragma once

#include <QList>
#include <QPointer>
#include <QWidget>

// Where the user is.
namespace plenair {

// The entered controls (see FocusEvents), the latest last: one of the windows that the user can reach, and
// one in each window that is hidden or waits for a dialog.
QList<QPointer<QWidget>>& EnteredControls();

// The window that a dialog belongs over: the active one, or between two dialogs the one in which a control
// was entered last. Null if there is none.
QWidget* WindowInUse();

} // namespace plenair

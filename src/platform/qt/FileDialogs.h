#pragma once

#include "platform/desktop/CommonDialog.h"

#include <QStringList>

#include <string>

namespace plenair {

// The file dialogs of the desktop. Gives whether one was accepted, with the full path in `dialog`. A name
// without an extension gets DefaultExt before the user is asked about overwriting.
bool ShowFileDialog(DialogKind kind, CommonDialog& dialog);

// The filters of a dialog as Qt wants them: what is shown, and behind it, in brackets that are hidden, the
// patterns: "All Files (*.*) (*)".
QStringList NameFilters(const std::string& filter);

} // namespace plenair

#pragma once

#include "platform/desktop/Clipboard.h"

namespace plenair {

// Behind CopyToClipboard. Pictures have the size that they have on the screen.
void CopyToDesktopClipboard(const ClipboardContent& content);

} // namespace plenair

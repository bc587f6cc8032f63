#pragma once

#include "platform/desktop/Clipboard.h"

namespace plenair {

// Behind CopyToClipboard. The pictures are made when another program first asks for them, or at the end of
// this one, in the size that they have on the screen.
void CopyToDesktopClipboard(const ClipboardContent& content);

} // namespace plenair

#pragma once

#include "platform/text/TableText.h"

namespace plenair {

struct LayeredPicture;

// What one copy puts on the clipboard.
struct ClipboardContent {
    TableRows Table;
    const LayeredPicture* Picture = nullptr; // copied at once; none if it is null
};

// Puts it on the desktop's clipboard in place of what was there, in all the forms that other programs may
// want: the table as plain text, as HTML and as a spreadsheet, the picture as SVG and as PNG. Silent where
// there is no clipboard.
void CopyToClipboard(const ClipboardContent& content);

} // namespace plenair

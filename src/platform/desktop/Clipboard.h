#pragma once

#include <string>

namespace plenair {

class RecordedSurface;

// What one copy puts on the clipboard: other programs take of it what they can use.
struct ClipboardContent {
    std::string Text; // plain, UTF-8
    std::string Html;
    const RecordedSurface* Picture = nullptr; // copied at once, and given as SVG and as PNG
};

// Puts it on the desktop's clipboard in place of what was there. Silent where there is none.
void CopyToClipboard(const ClipboardContent& content);

} // namespace plenair

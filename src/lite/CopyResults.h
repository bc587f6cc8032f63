#pragma once

#include "lite/LiteWindow.h"
#include "platform/text/TableText.h"

namespace plenair {

// A heading, the rows of the result table that aren't blank, and the round duct, as the window shows them.
TableRows ResultTable(const LiteWindow& window);

// Puts it on the clipboard. Nothing while there are no results.
void CopyResults(const LiteWindow& window);

} // namespace plenair

#pragma once

#include "platform/text/TableText.h"

#include <string>

namespace plenair {

// The table as a small OpenDocument spreadsheet: the bytes of a .ods file. Cells that hold a number in the
// user's locale are numbers, all others texts.
std::string SpreadsheetDocument(const TableRows& table);

} // namespace plenair

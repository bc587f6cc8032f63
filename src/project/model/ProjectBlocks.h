#pragma once

#include "platform/files/FileProgress.h"

#include <string>

// The text of project files and solution reports: one block of 15 lines per element of Ducts, from element 0.
// A marker with the element's number, then the element's numbers in an order of their own. 8-bit text, CR LF,
// and a point as decimal mark whatever the locale.
namespace plenair {

std::string ProjectText();

// Reads the blocks of a file into Ducts from element 0 on, DuctCount being -1 before. What stands between the
// blocks is passed over, and the numbers in the markers are not looked at. Text that is no number reads as 0.
// After a megabyte without a marker the file counts as ended: it may be huge, and is hardly a project.
//
// Throws FileFailure where the file can't be opened or read, ends within a block, holds a number too large
// for its field or more blocks than there can be elements. Then what was read up to there stays, and
// DuctCount stands at the element that was being read.
void ReadProjectText(const std::string& path, const FileProgress& progress = {});

} // namespace plenair

#pragma once

#include "platform/text/TableText.h"
#include "project/ProjectWindows.h"

// The project on the clipboard. Numbers are written as the user's locale does.
namespace plenair {

// A heading, and a line for each duct: its label, its kind and its eight values.
TableRows DuctTable();

// A heading, and a line for each element of PlottedPath: place, label as in the plot, length, drop, and both
// added up so far.
TableRows PathTable();

// Copies what the grid shows: all ducts or, while the plot stands there, the path, as a table and as a
// picture. Nothing in a project without a duct.
void CopyShown(const ProjectWindows& windows);

} // namespace plenair

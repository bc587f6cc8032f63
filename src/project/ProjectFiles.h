#pragma once

#include "project/ProjectWindows.h"

#include <string>

// Storing and loading projects. Saving and loading tell the user nothing about a failure: the operation ends,
// gives false, and what stood on the disk before stands there still.
namespace plenair {

// Asks for a file and writes the project to it. Clears RunFailed only when the file has been written. Under
// the name of its own report, which the next solution would put in its place, it is saved only after a
// question.
bool SaveProject(const ProjectWindows& windows);

// Asks for a file and reads a project from it. Without a single block to read, after Cancel too, the project
// is empty afterwards; from a file that breaks off in a block it keeps what was read.
bool LoadProject(const ProjectWindows& windows);

// Writes the solution report beside the project file, replacing an older one. Where that can't be done a
// message says why, with another try as often as the user likes.
void WriteSolutionReport();

// Name of the report of a project file: its last four characters, whatever they are, become ".Gus". A name
// shorter than that gets it behind.
std::string ReportName(const std::string& projectName);

// The question of cmdClose_Click, which an unsolved project asks: whether to save first. False if the user
// wants the solver to stay open.
bool AskBeforeClosing(const ProjectWindows& windows);

} // namespace plenair

#pragma once

#include "project/ProjectWindows.h"

#include <cstdint>

// The way back and forward through what was done to the project, from either window.
namespace plenair {

// Takes back what the sheet holds and hasn't stored; where there is no such text, the last step. Nothing
// where there is no step either.
void Undo(const ProjectWindows& windows);

// Takes the step undone last again, without working anything out anew. Nothing where there is none, or where
// the sheet holds text that isn't stored, which is newer.
void Redo(const ProjectWindows& windows);

// Brings both windows up to date with a project that has been put in place of another, the sheet to that
// duct; 0 leaves it where it is. Forgets a start point held.
void ShowProject(const ProjectWindows& windows, std::int16_t duct, bool pressureShown);

} // namespace plenair

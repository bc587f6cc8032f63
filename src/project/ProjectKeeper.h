#pragma once

#include "project/ProjectWindows.h"

#include <cstdint>
#include <string>

// What the user has done to the project is a step that can be undone, and outlives a crash or a power cut:
// the project as it was a second before stands in a file of this process in the user's state folder.
namespace plenair {

inline const std::string kRecoveryEnding = ".recovery";
inline const std::string kSolverTitle = "Project Solver";

// The solver opens. A folder that takes no files is told of once in a run, and then nothing is kept.
void StartKeeping();

// Ends an action of the user: what it has changed, in the elements from `first` on, is a step, and kept.
void NoteStep(const ProjectWindows& windows, std::int16_t first = 0);

// A save has named the project, which is no step.
void NoteSaved();

// The noted state of the project has changed. It is written soon, but not sooner than a second after the
// state before it, by a thread of its own, so that nobody waits for the disk.
void KeepProject();

// Writes it now. False where it can't be written, or nothing is kept.
bool KeepAtOnce();

// The solver closes as its user wants it: nothing is left behind.
void EndKeeping();

// The solver goes without having been closed, or without the save that was wanted: what was kept stays.
void LeaveKept();

} // namespace plenair

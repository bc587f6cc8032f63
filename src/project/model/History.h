#pragma once

#include "project/model/ProjectState.h"

#include <cstddef>
#include <cstdint>
#include <optional>

// Undo and redo of the project. A step is all that one action of the user has changed in the ducts, in
// Solved, and, where the action replaced the project, in ProjectName. Whoever ends such an action calls
// NoteStep, which finds the changes by itself. Steps are kept as packed differences; those that would take
// more than kMostHistory bytes together are forgotten from the oldest on.
namespace plenair {

constexpr std::size_t kMostHistory = 48 * 1024 * 1024;

// Forgets all steps. The project as it stands, with the button of the pressures shown or not, is where the
// next one begins.
void StartHistory(bool pressureShown = false);

// Forgets everything; StartHistory must come before the next step.
void EndHistory();

// Makes a step of what has changed since the last one, and forgets what had been undone. False, and no step,
// where nothing has. A caller that knows that no element before `first` has changed saves the search there.
bool NoteStep(bool pressureShown, std::int16_t first = 0);

// A save has named the project; that is part of no step, and stays when they are undone.
void NoteName();

// What undoing or redoing a step has come to.
struct SteppedTo {
    std::int16_t Duct = 0;      // the first one that has changed and is there; 0 if there is none
    bool PressureShown = false; // whether the button of the pressures was shown in that state
};

// Bring the project to the state before the step done last, or after the one undone last. Nothing if there is
// none.
std::optional<SteppedTo> UndoStep();
std::optional<SteppedTo> RedoStep();

// The project after the step that was noted, undone or redone last: never one in the midst of an action.
const ProjectState& NotedState();

// Bytes that the steps and the state to compare with take.
std::size_t HistoryBytes();

} // namespace plenair

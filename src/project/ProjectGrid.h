#pragma once

#include "project/ProjectWindows.h"

#include <cstdint>

// Drawing and editing the network on picGrid.
namespace plenair {

enum class MouseButton { Left = 1, Right = 2, Middle = 4 };

// Lays the window out, draws the grid lines on top of what the surface holds, and forgets a start point held.
void ResetProjectGrid(const ProjectWindows& windows);

// Shows the network, drawn anew from Ducts. Forgets a start point held.
void RedrawProject(const ProjectWindows& windows);

// Prints one label if labels are on. Nothing for 0.
void LabelDuct(const ProjectWindows& windows, std::int16_t duct);

// Redraws, and marks the duct in green. Nothing for 0.
void HighlightDuct(const ProjectWindows& windows, std::int16_t duct);

// picGrid_MouseDown. The first click of a chain holds a start point, each later one lays a duct from the
// point held to the new one; the right button ends the chain. Beeps where nothing may be added: on a solved
// project, and at the highest number of ducts.
void ClickGrid(const ProjectWindows& windows, MouseButton button, float x, float y);

// picGrid_KeyDown: the arrows move the cross from crossing to crossing, with Ctrl five at a time; Home, End,
// Page Up and Page Down move it to the edges. Space and Enter click on it with the left button, Escape with
// the right one. False for a key that does nothing on the grid.
bool PressGridKey(const ProjectWindows& windows, int keyCode, bool control);

// Moves the cross to where the mouse has clicked, so that the keyboard goes on from there.
void PointAtGrid(const ProjectWindows& windows, Point place);

// Whether the project is solved and so closed to changes; beeps then. What cmdLessDuct and cmdSaveGsp ask
// first.
bool BeepIfSolved();

// Removes the duct with the highest number, unless it is the only one.
void RemoveLastDuct(const ProjectWindows& windows);

// cmdClearGrid_Click: asks, and empties the project.
void ClearGrid(const ProjectWindows& windows);

// What ClearGrid does after a Yes.
void EmptyGrid(const ProjectWindows& windows);

// Brings both windows up to date with a project without a duct.
void ShowEmptyProject(const ProjectWindows& windows);

// chkParam_Click, when the box has changed.
void ShowOrHideSheet(const ProjectWindows& windows);

} // namespace plenair

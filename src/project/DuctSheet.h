#pragma once

#include "project/ProjectWindows.h"
#include "project/model/SheetBoxes.h"

#include <cstdint>

// The sheet of one duct: eight boxes, the one channel between text and DuctRecord in both directions. Boxes
// hold numbers in the user's locale.
namespace plenair {

// Loads a duct into the boxes, locks those that are not for the user to fill in, and, while the sheet can be
// seen, marks the duct on the grid. Nothing in an empty project.
void ShowDuctSheet(const ProjectWindows& windows, std::int16_t duct);

// Stores the eight boxes in the record, in their order, up to the first whose text is no number. Nothing in
// an empty project.
void ReadDuctSheet(const ProjectWindows& windows, std::int16_t duct);

struct SolvedValues {
    double Width = 0;         // mm
    double Height = 0;        // mm
    double Velocity = 0;      // m/s
    double Loss = 0;          // Pa/m
    double EquivDiameter = 0; // mm
};

// Writes a duct as solved into its five boxes. Each value is rounded up to the size step in its own unit
// first. Throws CalcFailure, and then no box has changed.
void ShowSolvedValues(const ProjectWindows& windows, const SolvedValues& values);

// scrDuctNo_Change: names the duct that the scroll bar stands on, ends a chain on the grid, and loads the
// duct.
void ChangeDuctNo(const ProjectWindows& windows);

// What a box does when it loses the focus and on Enter: the boxes go into the record, and with Follow On
// ticked the value of this one goes on to the later ducts. A locked box is not for the user to fill in and
// copies nothing.
void StoreBox(const ProjectWindows& windows, SheetBox box);

// Whether the sheet, seen by the user, holds something that was typed and isn't what is stored, be it a
// number or not.
bool HoldsUnstoredText(const ProjectWindows& windows);

// Shows what is stored in place of that: in an empty project 0.
void TakeBackTyping(const ProjectWindows& windows);

// Number of the duct that the sheet stands on.
std::int16_t SheetDuct(const ProjectWindows& windows);

} // namespace plenair

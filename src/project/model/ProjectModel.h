#pragma once

#include "platform/plane/Point.h"
#include "project/model/DuctRecord.h"
#include "project/model/SheetBoxes.h"

#include <cstdint>
#include <string>
#include <vector>

// The project in memory: a numbered list of elements that don't refer to one another. The drawing is a
// picture for the user; nothing is worked out from the coordinates.
namespace plenair {

// A flag is a word with no bit set or all of them.
using Flag = std::uint16_t;
constexpr Flag kFlagClear = 0;
constexpr Flag kFlagSet = 65535;

constexpr std::int16_t kMostDucts = 32767;

// Ducts 1 to DuctCount; element 0 is there from the start, but is no duct. While a file is being read
// DuctCount starts at -1.
extern std::vector<DuctRecord> Ducts;
extern std::int16_t DuctCount;

extern std::string ProjectName; // file name without its folder; empty until saved or loaded
extern Flag Solved;             // solved, and closed to changes
extern Flag RunFailed;          // of a solve run: stop between its steps
extern Flag DrawPending;        // a start point is held for the next click on the grid
extern Flag PlotShowing;        // the grid shows a path's plot instead of the network
extern float DrawColour;        // of the next duct

// While this number stays the same, the ducts that were there keep their colours and ends; AddDuct may add
// others. Colours and ends are changed by the model alone.
std::uint64_t NetworkRevision();

// Whether `duct` is a number from 1 to DuctCount.
bool IsDuct(int duct);

// The record of an element, 0 to DuctCount.
DuctRecord& Duct(int number);

// Adds a duct from `last` to `snapped` on a surface of that size, in DrawColour, all its values 0. There must
// be fewer than kMostDucts.
void AddDuct(Point last, Point snapped, Extent surface);

// Cuts or extends Ducts to DuctCount, keeping what stays.
void FitDucts();

// An open project without a duct and without a name.
void ClearProject();

// The same, with no start point held and no plot showing: the state in which the solver opens.
void StartProject();

// The single element 0 and a DuctCount of -1, to which a file's elements are then added one by one. Each that
// comes is the change of the network, or else ClearProject is.
void StartReading();

// Copies the value of a box from duct `duct` to every later one that takes input there. What lies between
// them doesn't interrupt the run.
void FollowOn(std::int16_t duct, SheetBox box);

// Letter and number, as in R3.
std::string DuctLabel(std::int16_t duct);

} // namespace plenair

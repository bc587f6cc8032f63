#pragma once

#include "lite/LiteWindow.h"

#include <string>

// One result as the user reads it: cells, lamp, round duct.
namespace plenair {

// One rectangle, with its equivalent round duct.
struct ResultRow {
    float Width = 0;       // mm
    float Height = 0;      // mm
    float Velocity = 0;    // m/s
    float Loss = 0;        // Pa/m
    double Equivalent = 0; // m, diameter rounded to the size step
    double Flow = 0;       // m³/s
};

// Writes a result into a row of the table; the middle row also fills the round duct. The lamp goes by the
// sizes as shown. Throws CalcFailure at a shown size of 0, after the cells.
void FillGrids(LiteWindow& window, const ResultRow& result, int row);

// The lamp for a rectangle of these sides, both above 0: green up to a ratio of 4, yellow up to 5, orange up
// to 8, red beyond.
Lamp LampFor(double width, double height);

// What a lamp tells of a rectangle, in words: "slender, 5 to 8".
std::string MeaningOf(Lamp lamp);

} // namespace plenair

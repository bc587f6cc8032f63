#pragma once

#include "lite/LiteWindow.h"

#include <cstdint>
#include <string>

// One result as the user reads it: cells, lamp, round duct.
namespace plenair {

// Writes one rectangle into `row` (0 to 4): `width` and `height` in mm, `velocity` in m/s, `loss` in Pa/m.
// Row 2 also fills the round duct: `equivalent` in m, rounded to the size step, and its velocity at `flow` in
// m³/s. The lamp goes by the sizes as shown. Throws CalcFailure at a shown size of 0, after the cells.
void FillGrids(LiteWindow& window, float width, float height, float velocity, float loss, double equivalent,
               double flow, std::int16_t row);

// The lamp for a rectangle of these sides, both above 0: green up to a ratio of 4, yellow up to 5, orange up
// to 8, red beyond.
Lamp LampFor(double width, double height);

} // namespace plenair

#pragma once

#include "platform/drawing/DrawingSurface.h"

namespace plenair {

// The colour number that an element of that Colour is drawn in: black where it is none, as in a damaged file.
ColourNumber DrawnColour(float colour);
bool IsColourNumber(float colour);

// Dark green: lblDuctNo while no duct has been chosen.
constexpr ColourNumber kNoDuctColour = 32768;

} // namespace plenair

#pragma once

#include <string>

namespace plenair {

// `size` rounded up to the next multiple of Settings.RoundOff thousandths, as text with three decimals and a
// point. The step is counted from 0 and from the nearest whole thousandth, so a size within half a thousandth
// of a multiple counts as that multiple, even from above. Normally metres, so that the step means mm. Throws
// CalcFailure at a RoundOff of 0 and at a size too large for a 32-bit count of thousandths.
std::string RoundUpSize(double size);

// The same, converted back to a number.
double RoundedUpSize(double size);

} // namespace plenair

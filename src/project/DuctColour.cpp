#include "project/DuctColour.h"

#include <cmath>

namespace plenair {

namespace {

constexpr double kHighestColour = 16777215.0;

double Whole(float colour) {
    return std::nearbyint(static_cast<double>(colour));
}

} // namespace

bool IsColourNumber(float colour) {
    return Whole(colour) >= 0.0 && Whole(colour) <= kHighestColour;
}

ColourNumber DrawnColour(float colour) {
    return IsColourNumber(colour) ? static_cast<ColourNumber>(Whole(colour)) : kBlackColour;
}

} // namespace plenair

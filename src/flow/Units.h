#pragma once

// Between the units that a user reads and those of the formulae. A flow is per second.
namespace plenair {

constexpr double ToMetres(double millimetres) {
    return millimetres / 1000;
}

constexpr double ToMillimetres(double metres) {
    return metres * 1000;
}

constexpr double ToCubicMetres(double litres) {
    return litres / 1000;
}

constexpr double ToLitres(double cubicMetres) {
    return cubicMetres * 1000;
}

} // namespace plenair

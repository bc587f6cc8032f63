#pragma once

// Between the units that a user reads and those of the formulae. Flows are in L/s and m³/s.
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

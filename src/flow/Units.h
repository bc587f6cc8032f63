#pragma once

// Conversions between the units that a user reads, mm and L/s, and those of the formulae, m and m³/s.
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

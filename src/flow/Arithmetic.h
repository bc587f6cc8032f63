#pragma once

#include "flow/CalcFailure.h"

#include <cmath>
#include <cstdint>

// Arithmetic that fails where a result would be infinite or no number, as after a division by zero or the
// root of a negative number, instead of carrying it on. Each throws CalcFailure. An underflow is no failure.
namespace plenair {

inline double Checked(double value) {
    if (!std::isfinite(value)) {
        throw CalcFailure();
    }
    return value;
}

// The dividend and the divisor must be finite.
inline double Divide(double dividend, double divisor) {
    return Checked(Checked(dividend) / Checked(divisor));
}

inline double SquareRoot(double value) {
    return Checked(std::sqrt(value));
}

// `exponent` is a fraction or a positive whole number.
inline double Power(double base, double exponent) {
    return Checked(std::pow(Checked(base), exponent));
}

inline float ToSingle(double value) {
    const float single = static_cast<float>(Checked(value));
    if (!std::isfinite(single)) {
        throw CalcFailure();
    }
    return single;
}

// To the nearest whole number, halves to even.
inline double RoundHalfEven(double value) {
    return std::nearbyint(Checked(value));
}

inline std::int32_t ToInt32(double value) {
    const double whole = RoundHalfEven(value);
    if (whole < -2147483648.0 || whole > 2147483647.0) {
        throw CalcFailure();
    }
    return static_cast<std::int32_t>(whole);
}

inline std::int16_t ToInt16(double value) {
    const double whole = RoundHalfEven(value);
    if (whole < -32768.0 || whole > 32767.0) {
        throw CalcFailure();
    }
    return static_cast<std::int16_t>(whole);
}

} // namespace plenair

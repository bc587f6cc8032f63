#pragma once

#include "flow/CalcFailure.h"

#include <cmath>
#include <cstdint>

// Arithmetic that fails where a result would be infinite or no number, instead of carrying it on. Each
// throws CalcFailure. An underflow is no failure.
namespace plenair {

inline double Checked(double value) {
    if (!std::isfinite(value)) {
        throw CalcFailure("overflow");
    }
    return value;
}

// The dividend and the divisor must be finite.
inline double Divide(double dividend, double divisor) {
    if (divisor == 0.0) {
        throw CalcFailure("division by zero");
    }
    return Checked(Checked(dividend) / Checked(divisor));
}

inline double SquareRoot(double value) {
    if (value < 0.0) {
        throw CalcFailure("square root of a negative number");
    }
    return Checked(std::sqrt(value));
}

// `exponent` is a fraction or a positive whole number.
inline double Power(double base, double exponent) {
    if (base < 0.0 && exponent != std::trunc(exponent)) {
        throw CalcFailure("broken power of a negative number");
    }
    return Checked(std::pow(Checked(base), exponent));
}

inline float ToSingle(double value) {
    const float single = static_cast<float>(Checked(value));
    if (!std::isfinite(single)) {
        throw CalcFailure("too large for 32 bits");
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
        throw CalcFailure("too large for a 32-bit whole number");
    }
    return static_cast<std::int32_t>(whole);
}

inline std::int16_t ToInt16(double value) {
    const double whole = RoundHalfEven(value);
    if (whole < -32768.0 || whole > 32767.0) {
        throw CalcFailure("too large for a 16-bit whole number");
    }
    return static_cast<std::int16_t>(whole);
}

} // namespace plenair

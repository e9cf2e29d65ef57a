// Conversion of fractions to whole numbers as the host language does it.
#pragma once

#include <cmath>
#include <cstdint>

#include "base/RunTimeError.h"

namespace vantik {

// Half to even (the default rounding mode of the machine); Overflow outside 32 bits or for a NaN.
inline std::int32_t RoundHalfToEven(double value) {
    const double rounded = std::nearbyint(value);
    if (!(rounded >= -2147483648.0 && rounded <= 2147483647.0)) Raise(RunTimeErrorNumber::Overflow);
    return static_cast<std::int32_t>(rounded);
}

// Host coordinates to pixels: both numbers are rounded to whole ones first and divided as whole numbers.
inline std::int32_t TwipsToPixels(double twips, double twipsPerPixel) {
    const std::int64_t divisor = RoundHalfToEven(twipsPerPixel);
    if (divisor == 0) Raise(RunTimeErrorNumber::DivisionByZero);
    return static_cast<std::int32_t>(RoundHalfToEven(twips) / divisor);
}

} // namespace vantik

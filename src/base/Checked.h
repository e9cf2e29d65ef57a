// Whole-number arithmetic that raises Overflow instead of wrapping.
#pragma once

#include <concepts>
#include <cstdint>
#include <utility>

#include "base/RunTimeError.h"

namespace vantik {

// A value that has to fit the narrower type, or Overflow.
template <std::integral To, std::integral From>
constexpr To Narrow(From value) {
    if (!std::in_range<To>(value)) Raise(RunTimeErrorNumber::Overflow);
    return static_cast<To>(value);
}

// A 32-bit number whose sums, differences and products are computed in 64 bits and must fit 32 again.
class Checked {
public:
    constexpr Checked(std::int32_t value) : value_(value) {} // NOLINT: converts on purpose, both ways
    constexpr operator std::int32_t() const { return value_; }

    friend constexpr Checked operator+(Checked a, Checked b) { return Fit(Wide(a) + Wide(b)); }
    friend constexpr Checked operator-(Checked a, Checked b) { return Fit(Wide(a) - Wide(b)); }
    friend constexpr Checked operator*(Checked a, Checked b) { return Fit(Wide(a) * Wide(b)); }
    friend constexpr Checked operator+(Checked a, std::int32_t b) { return a + Checked(b); }
    friend constexpr Checked operator-(Checked a, std::int32_t b) { return a - Checked(b); }
    friend constexpr Checked operator*(Checked a, std::int32_t b) { return a * Checked(b); }
    friend constexpr Checked operator+(std::int32_t a, Checked b) { return Checked(a) + b; }
    friend constexpr Checked operator-(std::int32_t a, Checked b) { return Checked(a) - b; }
    friend constexpr Checked operator*(std::int32_t a, Checked b) { return Checked(a) * b; }

private:
    static constexpr std::int64_t Wide(Checked c) { return c.value_; }
    static constexpr Checked Fit(std::int64_t wide) { return Narrow<std::int32_t>(wide); }

    std::int32_t value_;
};

// Sum and difference of 16-bit indexes, which must fit 16 bits again.
constexpr std::int16_t Add16(std::int16_t a, std::int16_t b) { return Narrow<std::int16_t>(a + b); }
constexpr std::int16_t Subtract16(std::int16_t a, std::int16_t b) { return Narrow<std::int16_t>(a - b); }

} // namespace vantik

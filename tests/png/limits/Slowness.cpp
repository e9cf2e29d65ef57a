#include "tests/png/limits/Slowness.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "tests/png/limits/ProcessorTime.h"

namespace vantik {

namespace {

// What the work below takes on one core of an idle Xeon of 2.5 GHz.
constexpr double UsualSeconds = 0.3;

// Much new memory and a chain of steps over it, as decoding is.
std::uint32_t Work() {
    std::vector<std::uint32_t> numbers(100'000'000);
    std::uint32_t state = 1;
    for (std::uint32_t& number : numbers) {
        state = state * 1664525 + number;
        number = state;
    }
    return state;
}

} // namespace

double Slowness() {
    const double start = ProcessorSeconds();
    CHECK(Work() != 0); // somebody looks at the outcome, so it is computed
    return std::max(1.0, (ProcessorSeconds() - start) / UsualSeconds);
}

} // namespace vantik

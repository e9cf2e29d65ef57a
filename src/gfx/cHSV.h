// One colour between red-green-blue and hue-saturation-value.
#pragma once

#include <cstdint>

namespace vantik {

class cHSV {
public:
    std::int16_t R = 0; // 0..255
    std::int16_t G = 0;
    std::int16_t B = 0;
    float H = 0; // degrees, 0 <= H < 360
    float S = 0; // percent
    float V = 0; // percent

    void ToHsv() noexcept; // reads R, G, B; writes H, S, V

    // Reads H, S, V; writes R, G, B. A hue outside 0..360 gives black. What does not fit 16 bits raises Overflow:
    // components before it are stored, in this order, it and those behind it are left as they were.
    void ToRgb();
};

} // namespace vantik

// The size of the PNG read most recently, as icons keep it.
#pragma once

#include <cstdint>

namespace vantik {

struct PngSize {
    std::int16_t LastPngWidth = 0; // pixels
    std::int16_t LastPngHeight = 0;
};

} // namespace vantik

// Pictures as plain pixels, top row first.
#pragma once

#include <cstdint>
#include <vector>

#include "png/DibImage.h"

namespace vantik {

// Red, green, blue and alpha; pictures without transparency are opaque.
std::vector<std::uint8_t> ToRgba(const DibImage& image);

// Red, green and blue.
std::vector<std::uint8_t> ToRgb(const DibImage& image);

} // namespace vantik

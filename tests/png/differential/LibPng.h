// Pictures written and read by libpng.
#pragma once

#include <cstdint>
#include <vector>

#include "tests/png/PngBytes.h"

namespace vantik {

struct SourcePicture {
    std::uint32_t Width = 1;
    std::uint32_t Height = 1;
    int BitDepth = 8;
    int ColourType = 2;
    bool IsInterlaced = false;
    int Filters = 0; // PNG_FILTER_... flags, several for adaptive filtering
    int Level = 6;
    Bytes Samples;                  // rows of packed samples, no filter bytes
    Bytes Palette;                  // 3 bytes per entry
    Bytes Alphas;                   // of palette entries
    std::vector<std::uint16_t> Key; // transparent grey, or red, green and blue
};

std::size_t PackedRowSize(const SourcePicture& picture);

Bytes WriteWithLibPng(const SourcePicture& picture);

// Red, green, blue and alpha of 8 bits, low bytes of 16-bit samples dropped.
Bytes ReadRgbaWithLibPng(const Bytes& png);

} // namespace vantik

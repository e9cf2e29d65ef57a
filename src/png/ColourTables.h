// The colour tables of 1-, 4- and 8-bit bitmaps. An entry has blue in its low byte, then green, red and 0.
#pragma once

#include <cstdint>
#include <vector>

#include "png/PngFormat.h"

namespace vantik {

using ColourTable = std::vector<std::uint32_t>;

constexpr std::uint32_t PackColour(std::uint32_t red, std::uint32_t green, std::uint32_t blue) noexcept {
    return red << 16 | green << 8 | blue;
}

// A grey level as a table entry.
constexpr std::uint32_t PackGrey(std::uint32_t level) noexcept { return level * 0x010101u; }

// The level of entry `index` in the ramp of 2^sampleDepth greys, rounded half to even; 0 for a depth of 0.
std::uint32_t GreyLevel(std::int32_t index, std::int32_t sampleDepth);

// A ramp of 2^sampleDepth greys, at most 256, filled up with black to `entries`.
ColourTable GreyPalette(std::int32_t sampleDepth, std::size_t entries);

// One entry per 3 bytes of PLTE; black where there are none.
ColourTable PaletteTable(ByteView palette, std::size_t entries);

// The two colours of a PLTE of exactly 6 bytes, else black and white.
ColourTable TwoColourTable(ByteView palette);

} // namespace vantik

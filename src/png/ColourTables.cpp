#include "png/ColourTables.h"

#include <algorithm>
#include <cmath>

#include "base/Rounding.h"

namespace vantik {

std::uint32_t GreyLevel(std::int32_t index, std::int32_t sampleDepth) {
    if (sampleDepth <= 0) return 0;
    return static_cast<std::uint32_t>(RoundHalfToEven(index * 255.0 / (std::ldexp(1.0, sampleDepth) - 1)));
}

ColourTable GreyPalette(std::int32_t sampleDepth, std::size_t entries) {
    ColourTable table(entries);
    const int ramp = 1 << std::min(sampleDepth, 8);
    for (int i = 0; i < ramp && i < static_cast<int>(entries); ++i) {
        table[static_cast<std::size_t>(i)] = PackGrey(GreyLevel(i, std::min(sampleDepth, 8)));
    }
    return table;
}

ColourTable PaletteTable(ByteView palette, std::size_t entries) {
    ColourTable table(entries);
    for (std::size_t i = 0; i < std::min(entries, palette.size() / 3); ++i) {
        table[i] = PackColour(palette[3 * i], palette[3 * i + 1], palette[3 * i + 2]);
    }
    return table;
}

ColourTable TwoColourTable(ByteView palette) {
    if (palette.size() != 6) return {PackGrey(0), PackGrey(255)};
    return PaletteTable(palette, 2);
}

} // namespace vantik

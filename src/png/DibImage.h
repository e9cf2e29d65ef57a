// A picture in the layout that Windows takes for device-independent bitmaps.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "png/ByteBuffer.h"
#include "png/ScanlineLayout.h"

namespace vantik {

struct DibImage {
    std::int32_t Width = 0;
    std::int32_t Height = 0;
    std::int32_t BitCount = 0; // 1, 4, 8, 24 or 32; 0 when there is no picture
    bool IsTopDown = true;
    bool IsTransparent = false; // 32 bits whose alpha is still to be mixed with a background
    // Rows of DibStride bytes each: indexes, or blue, green, red and (32 bits) alpha; a few spare bytes behind them.
    ByteBuffer Pixels;
    std::vector<std::uint32_t>
        ColourTable; // 2^BitCount entries up to 8 bits: blue in the low byte, green, red, 0

    explicit operator bool() const noexcept { return BitCount != 0; }

    std::size_t Stride() const noexcept { return static_cast<std::size_t>(DibStride(Width, BitCount)); }

    std::size_t Memory() const noexcept { return Pixels.size() + ColourTable.size() * sizeof ColourTable[0]; }

    // From a row to the one beneath it.
    std::ptrdiff_t RowStep() const noexcept {
        const auto stride = static_cast<std::ptrdiff_t>(Stride());
        return IsTopDown ? stride : -stride;
    }

    // The rows by their place in the picture: 0 is the topmost.
    std::uint8_t* Row(std::int32_t y) noexcept { return Pixels.data() + RowOffset(y); }
    const std::uint8_t* Row(std::int32_t y) const noexcept { return Pixels.data() + RowOffset(y); }

private:
    std::size_t RowOffset(std::int32_t y) const noexcept {
        return static_cast<std::size_t>(IsTopDown ? y : Height - 1 - y) * Stride();
    }
};

} // namespace vantik

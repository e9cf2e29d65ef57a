// What a surface shows, as plain memory: rows from the top, 0xRRGGBB in each pixel's low 24 bits.
#pragma once

#include <cstdint>
#include <vector>

namespace vantik {

struct PixelRows {
    std::int32_t Width = 0, Height = 0;
    std::vector<std::uint32_t> Pixels;

    const std::uint32_t* Row(std::int32_t y) const noexcept {
        return Pixels.data() + static_cast<std::ptrdiff_t>(y) * Width;
    }
    std::size_t Memory() const noexcept { return Pixels.capacity() * sizeof Pixels[0]; }
};

} // namespace vantik

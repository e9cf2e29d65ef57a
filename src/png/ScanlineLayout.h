// How the samples of one image, or of one pass of it, lie in their scanlines.
#pragma once

#include <cstddef>
#include <cstdint>

#include "png/PngFormat.h"

namespace vantik {

// 0 for a colour type that does not exist.
constexpr std::int32_t ChannelsOf(std::int32_t colourType) noexcept {
    switch (colourType) {
    case ColourType::Grey:
    case ColourType::Palette: return 1;
    case ColourType::Rgb: return 3;
    case ColourType::GreyAlpha: return 2;
    case ColourType::RgbAlpha: return 4;
    default: return 0;
    }
}

constexpr std::int32_t BitsPerPixel(const ImageHeader& header) noexcept {
    return header.BitDepth * ChannelsOf(header.ColourType);
}

// The distance to the "left" byte in the filters.
constexpr std::int32_t BytesPerPixel(std::int32_t bitsPerPixel) noexcept {
    return bitsPerPixel < 8 ? 1 : bitsPerPixel / 8;
}

// The stored length of one scanline including its filter byte.
constexpr std::int64_t RowBytes(std::int64_t width, std::int32_t bitsPerPixel) noexcept {
    return (width * bitsPerPixel + 7) / 8 + 1;
}

// The length of a bitmap's row.
constexpr std::int64_t DibStride(std::int64_t width, std::int32_t bitsPerPixel) noexcept {
    return (width * bitsPerPixel + 31) / 32 * 4;
}

} // namespace vantik

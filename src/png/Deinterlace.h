// Adam7: seven reduced images become one.
#pragma once

#include <cstdint>
#include <string_view>

#include "png/ByteBuffer.h"
#include "png/RawScanlines.h"

namespace vantik {

struct InterlacedImage {
    std::int32_t Width;
    std::int32_t Height;
    std::int32_t BitsPerPixel;
};

// The image row by row, pixel by pixel: whole bytes as they are, and one byte for each sample of fewer than 8 bits.
ByteBuffer Deinterlace(RawScanlines& raw, const InterlacedImage& image);

// The first of the packed samples is in the highest bits.
template <unsigned Bits>
constexpr std::uint8_t SampleOf(std::uint8_t packed, unsigned index) noexcept {
    return static_cast<std::uint8_t>(packed >> (8 - Bits - index * Bits) & ((1u << Bits) - 1));
}

// Splits packed samples of 1, 2 or 4 bits, the most significant first, into one byte each.
void SplitBits(const std::uint8_t* packed, std::uint8_t* samples, std::size_t count,
               std::int32_t bits) noexcept;

// How many of `width` columns a pass takes that has these 1-based columns, as digits, of every block of eight.
std::int64_t PassWidth(std::int32_t width, std::string_view columns) noexcept;

} // namespace vantik

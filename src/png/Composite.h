// Mixes a transparent picture with what lies beneath it.
#pragma once

#include <cstdint>
#include <span>

#include "png/DibImage.h"

namespace vantik {

// What lies beneath a picture.
class BackgroundSource {
public:
    virtual ~BackgroundSource() = default;

    // Fills rows of blue, green and red, bottom-up and of DibStride(width, 24) bytes each. What cannot be read stays as
    // it was.
    virtual void ReadRows(std::int32_t width, std::int32_t height, std::span<std::uint8_t> rows) noexcept = 0;
};

// The 32-bit pixels as 24-bit ones mixed with the background; with black when there is none. Styles 0, 1 and 2 take all
// three channels from blue, green or red, 3 keeps the colours, 4 sets their value (of hue, saturation, value) to 80
// percent and every higher style to 0. Raises OutOfMemory.
[[nodiscard]] DibImage Composite(const DibImage& image, std::uint8_t style, BackgroundSource* background);

// Each channel is (source * alpha + background * (255 - alpha) + 255) / 256, cut: exact at both ends, where alpha 255 gives
// the source and 0 the background. Blue, which is in the low byte, and red are mixed at once, neither sum being over 16 bits.
constexpr std::uint32_t MixColours(std::uint32_t source, std::uint32_t background, unsigned alpha) noexcept {
    constexpr std::uint32_t BlueAndRed = 0xFF00FF, Green = 0x00FF00;
    const auto mixed = [&](std::uint32_t channels) {
        const std::uint32_t sum = (source & channels) * alpha + (background & channels) * (255 - alpha);
        return (sum + channels) >> 8 & channels;
    };
    return mixed(BlueAndRed) | mixed(Green);
}

} // namespace vantik

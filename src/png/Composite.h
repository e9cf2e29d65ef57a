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

// One channel. Dividing by 256 after adding 255 is exact at both ends: alpha 255 gives the source and 0 the background.
constexpr std::uint8_t MixChannel(unsigned source, unsigned background, unsigned alpha) noexcept {
    return static_cast<std::uint8_t>((source * alpha + background * (255 - alpha) + 255) >> 8);
}

} // namespace vantik

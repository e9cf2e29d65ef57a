// Whether a picture file holds what its header promises.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace vantik {

// To be asked before the bytes go to the platform's picture loader, which believes the header of a bitmap and reads on
// where the data ends. False for a bitmap of more than 64 million pixels, of a kind that the platform does not know, or
// whose colours or pixels are not all in the file; and for what does not begin as one of the loader's formats.
bool IsWholePicture(std::span<const std::uint8_t> file) noexcept;

struct BitmapFormat {
    std::int32_t Width, Height; // pixels
    std::int32_t Bits;          // per pixel
};

// Of a bitmap as above; nothing for one that is not whole, and for other formats.
std::optional<BitmapFormat> FormatOfBitmap(std::span<const std::uint8_t> file) noexcept;

} // namespace vantik

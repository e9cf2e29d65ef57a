// The bytes of the PNG format: signature, byte order, chunk names, colour types and the IHDR record.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace vantik {

using ByteView = std::span<const std::uint8_t>;

inline constexpr std::array<std::uint8_t, 8> PngSignature = {137, 80, 78, 71, 13, 10, 26, 10};

bool IsPngSignature(std::span<const std::uint8_t, 8> bytes) noexcept;

// Reverses the bytes of a number that was copied from the file as it stands there.
constexpr std::int32_t SwapLong(std::int32_t value) noexcept {
    return static_cast<std::int32_t>(__builtin_bswap32(static_cast<std::uint32_t>(value)));
}
constexpr std::int16_t SwapInteger(std::int16_t value) noexcept {
    return static_cast<std::int16_t>(__builtin_bswap16(static_cast<std::uint16_t>(value)));
}

// Numbers of the file at an offset; SubscriptOutOfRange where the data is too short.
std::int32_t BigEndianLong(ByteView data, std::size_t offset);
std::int16_t BigEndianInteger(ByteView data, std::size_t offset);

// Four characters as a number, so that chunk names can be switched over.
constexpr std::uint32_t ChunkName(const char (&name)[5]) noexcept {
    std::uint32_t packed = 0;
    for (int i = 0; i < 4; ++i) packed = packed << 8 | static_cast<std::uint8_t>(name[i]);
    return packed;
}

enum ColourType : std::int32_t { Grey = 0, Rgb = 2, Palette = 3, GreyAlpha = 4, RgbAlpha = 6 };

struct ImageHeader {
    std::int32_t Width = 0;
    std::int32_t Height = 0;
    std::int32_t BitDepth = 0;
    std::int32_t ColourType = 0;
    std::int32_t Compression = 0;
    std::int32_t Filter = 0;
    std::int32_t Interlace = 0;
};

// The first 13 bytes of an IHDR chunk, nothing validated; SubscriptOutOfRange when there are fewer.
ImageHeader ParseHeader(ByteView data);

} // namespace vantik

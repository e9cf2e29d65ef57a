#include "tools/pngprobe/PixelExport.h"

namespace vantik {

namespace {

constexpr std::uint32_t Opaque = 0xFF000000u;

// Indexes of 1, 4 and 8 bits, the leftmost in the highest bits.
std::uint32_t IndexedPixel(const DibImage& image, const std::uint8_t* row, std::size_t x) {
    const auto bits = static_cast<std::size_t>(image.BitCount);
    const std::size_t bit = x * bits;
    const unsigned index = row[bit / 8] >> (8 - bits - bit % 8) & ((1u << bits) - 1);
    return image.ColourTable[index] | Opaque;
}

std::uint32_t WholePixel(const DibImage& image, const std::uint8_t* row, std::size_t x) {
    const std::uint8_t* const pixel = row + x * static_cast<std::size_t>(image.BitCount / 8);
    const std::uint32_t alpha = image.IsTransparent ? std::uint32_t{pixel[3]} << 24 : Opaque;
    return pixel[0] | pixel[1] << 8 | pixel[2] << 16 | alpha;
}

std::vector<std::uint8_t> Export(const DibImage& image, bool withAlpha) {
    std::vector<std::uint8_t> bytes;
    for (std::int32_t y = 0; y < image.Height; ++y) {
        const std::uint8_t* const row = image.Row(y);
        for (std::size_t x = 0; x < static_cast<std::size_t>(image.Width); ++x) {
            const std::uint32_t pixel =
                image.BitCount <= 8 ? IndexedPixel(image, row, x) : WholePixel(image, row, x);
            for (const unsigned shift : {16u, 8u, 0u})
                bytes.push_back(static_cast<std::uint8_t>(pixel >> shift));
            if (withAlpha) bytes.push_back(static_cast<std::uint8_t>(pixel >> 24));
        }
    }
    return bytes;
}

} // namespace

std::vector<std::uint8_t> ToRgba(const DibImage& image) { return Export(image, true); }
std::vector<std::uint8_t> ToRgb(const DibImage& image) { return Export(image, false); }

} // namespace vantik

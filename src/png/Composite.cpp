#include "png/Composite.h"

#include <cstring>

#include "gfx/cHSV.h"
#include "png/OutOfMemory.h"

namespace vantik {

namespace {

constexpr std::uint8_t FirstHsvStyle = 4;
constexpr float DimmedValue = 80;

// The byte of a pixel (blue, green, red) that each of these channels is taken from.
struct ChannelOffsets {
    std::uint8_t Blue, Green, Red;
};

constexpr ChannelOffsets OffsetsOf(std::uint8_t style) noexcept {
    switch (style) {
    case 0: return {0, 0, 0};
    case 1: return {1, 1, 1};
    case 2: return {2, 2, 2};
    default: return {0, 1, 2};
    }
}

// Neighbours mostly have the same colour, so the last one is remembered.
class Recolouring {
public:
    explicit Recolouring(std::uint8_t style) : value_(style == FirstHsvStyle ? DimmedValue : 0) {}

    void Apply(const std::uint8_t* from, std::uint8_t* to) {
        std::uint32_t pixel;
        std::memcpy(&pixel, from, sizeof pixel);
        const std::uint32_t alpha = pixel & 0xFF000000, colour = pixel ^ alpha;
        if (colour != last_) {
            last_ = colour;
            Convert(colour);
        }
        pixel = alpha | converted_;
        std::memcpy(to, &pixel, sizeof pixel);
    }

private:
    void Convert(std::uint32_t colour) {
        cHSV hsv;
        hsv.B = static_cast<std::int16_t>(colour & 0xFF);
        hsv.G = static_cast<std::int16_t>(colour >> 8 & 0xFF);
        hsv.R = static_cast<std::int16_t>(colour >> 16);
        hsv.ToHsv();
        hsv.V = value_;
        hsv.ToRgb();
        converted_ = static_cast<std::uint32_t>(hsv.B | hsv.G << 8 | hsv.R << 16);
    }

    const float value_;
    std::uint32_t last_ = 0xFFFFFFFF; // no colour
    std::uint32_t converted_ = 0;
};

void RecolourRow(const std::uint8_t* from, std::span<std::uint8_t> row, Recolouring& recolouring) {
    for (std::size_t at = 0; at < row.size(); at += 4) recolouring.Apply(from + at, row.data() + at);
}

void MixRow(const std::uint8_t* pixel, std::uint8_t* background, std::int32_t width,
            ChannelOffsets from) noexcept {
    for (std::int32_t x = 0; x < width; ++x, pixel += 4, background += 3) {
        const unsigned alpha = pixel[3];
        if (alpha == 0) continue; // most icons have nothing around them
        background[0] = MixChannel(pixel[from.Blue], background[0], alpha);
        background[1] = MixChannel(pixel[from.Green], background[1], alpha);
        background[2] = MixChannel(pixel[from.Red], background[2], alpha);
    }
}

} // namespace

DibImage Composite(const DibImage& image, std::uint8_t style, BackgroundSource* background) {
    DibImage mixed;
    mixed.Width = image.Width;
    mixed.Height = image.Height;
    mixed.BitCount = 24;
    mixed.IsTopDown = false;
    mixed.Pixels = WithOutOfMemory(
        [&] { return ByteBuffer::Zeroed(mixed.Stride() * static_cast<std::size_t>(image.Height)); });
    ByteBuffer recoloured; // a row of the picture, which itself stays as it is
    if (style >= FirstHsvStyle) recoloured = WithOutOfMemory([&] { return ByteBuffer(image.Stride()); });
    if (background) background->ReadRows(image.Width, image.Height, mixed.Pixels.All());

    Recolouring recolouring(style);
    const ChannelOffsets offsets = OffsetsOf(style);
    const std::uint8_t* const first = image.Row(0);
    std::uint8_t* const firstMixed = mixed.Row(0);
    const std::ptrdiff_t step = image.RowStep(), mixedStep = mixed.RowStep();
    for (std::int32_t y = 0; y < image.Height; ++y) {
        const std::uint8_t* row = first + y * step;
        if (!recoloured.empty()) {
            RecolourRow(row, recoloured.All(), recolouring);
            row = recoloured.data();
        }
        MixRow(row, firstMixed + y * mixedStep, image.Width, offsets);
    }
    return mixed;
}

} // namespace vantik

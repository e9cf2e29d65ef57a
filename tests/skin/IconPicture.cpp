#include "tests/skin/IconPicture.h"

#include <random>

#include "tests/png/PngBytes.h"

namespace vantik::test {

namespace {

constexpr int Blue = 2, Green = 1;

std::uint32_t SourceChannel(const Rgba& pixel, int channel, int style) {
    switch (style) {
    case 0: return pixel[Blue];
    case 1: return pixel[Green];
    case 3: return pixel[static_cast<std::size_t>(channel)];
    default: return 204; // a grey of any brightness, at 80 percent of 255
    }
}

std::uint32_t MixChannel(std::uint32_t source, std::uint32_t background, std::uint32_t alpha) {
    if (alpha == 255) return source;
    if (alpha == 0) return background;
    return ((source * alpha + background * (255 - alpha) + 255) / 256) % 256;
}

std::uint32_t MixPixel(const Rgba& pixel, std::uint32_t background, int style) {
    std::uint32_t mixed = 0;
    for (int channel = 0; channel < 3; ++channel) {
        const int shift = 16 - 8 * channel;
        const std::uint32_t below = (background >> shift) & 0xFF;
        mixed |= MixChannel(SourceChannel(pixel, channel, style), below, pixel[3]) << shift;
    }
    return mixed;
}

} // namespace

IconPicture RandomIcon(std::int32_t width, std::int32_t height, std::uint32_t seed) {
    std::mt19937 random(seed);
    IconPicture icon = FlatIcon(width, height, {});
    for (Rgba& pixel : icon.Values) {
        const std::uint32_t value = random();
        for (std::size_t i = 0; i < 3; ++i) pixel[i] = static_cast<std::uint8_t>(value >> (8 * i));
        constexpr std::uint8_t alphas[] = {0, 255, 1, 254, 128, 77};
        pixel[3] = alphas[random() % std::size(alphas)];
    }
    return icon;
}

IconPicture FlatIcon(std::int32_t width, std::int32_t height, Rgba value) {
    return {width, height, std::vector<Rgba>(static_cast<std::size_t>(width * height), value)};
}

std::string AsPng(const IconPicture& icon) {
    Bytes rows;
    for (std::int32_t y = 0; y < icon.Height; ++y) {
        rows.push_back(0); // no filter
        for (std::int32_t x = 0; x < icon.Width; ++x)
            rows.insert(rows.end(), icon.At(x, y).begin(), icon.At(x, y).end());
    }
    HeaderFields header;
    header.Width = static_cast<std::uint32_t>(icon.Width);
    header.Height = static_cast<std::uint32_t>(icon.Height);
    header.ColourType = 6;
    const Bytes bytes = PngBytes().Header(header).StoredImage(rows).End();
    return {bytes.begin(), bytes.end()};
}

std::string FlatPng(std::uint32_t width, std::uint32_t height) {
    const HeaderFields header = {.Width = width, .Height = height, .ColourType = 0};
    const Bytes rows(std::size_t{height} * (1 + width), 0);
    const Bytes bytes = PngBytes().Header(header).StoredImage(rows).End();
    return {bytes.begin(), bytes.end()};
}

void Mix(Pixels& onto, const IconPicture& icon, std::int32_t x, std::int32_t y, int style,
         const RECT& bounds) {
    for (std::int32_t j = 0; j < icon.Height; ++j)
        for (std::int32_t i = 0; i < icon.Width; ++i) {
            const POINT at = {x + i, y + j};
            if (PtInRect(&bounds, at))
                onto.Set(at.x, at.y, MixPixel(icon.At(i, j), onto.At(at.x, at.y), style));
        }
}

} // namespace vantik::test

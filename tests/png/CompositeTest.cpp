#include <doctest/doctest.h>

#include <cmath>

#include "gfx/cHSV.h"
#include "png/Composite.h"
#include "tests/png/DecodedPng.h"

namespace vantik {

namespace {

struct Bgr {
    int Blue, Green, Red;
    friend bool operator==(const Bgr&, const Bgr&) = default;
};

// A background whose pixel at (x, y), y from the top, is known.
class KnownBackground final : public BackgroundSource {
public:
    static Bgr At(std::int32_t x, std::int32_t y) {
        return {x * 7 % 256, y * 11 % 256, (x * 3 + y * 5) % 256};
    }

    void ReadRows(std::int32_t width, std::int32_t height, std::span<std::uint8_t> rows) noexcept override {
        const auto stride = static_cast<std::size_t>(DibStride(width, 24));
        for (std::int32_t y = 0; y < height; ++y) {
            for (std::int32_t x = 0; x < width; ++x) {
                const Bgr pixel = At(x, y);
                std::uint8_t* const target = &rows[static_cast<std::size_t>(height - 1 - y) * stride +
                                                   3 * static_cast<std::size_t>(x)];
                target[0] = static_cast<std::uint8_t>(pixel.Blue);
                target[1] = static_cast<std::uint8_t>(pixel.Green);
                target[2] = static_cast<std::uint8_t>(pixel.Red);
            }
        }
    }
};

DibImage NewTransparentImage(std::int32_t width, std::int32_t height) {
    DibImage image;
    image.Width = width;
    image.Height = height;
    image.BitCount = 32;
    image.IsTopDown = false;
    image.IsTransparent = true;
    image.Pixels = ByteBuffer::Zeroed(image.Stride() * static_cast<std::size_t>(height));
    return image;
}

Bgr PixelAt(const DibImage& image, std::int32_t x, std::int32_t y) {
    const std::uint8_t* const pixel = image.Row(y) + 3 * x;
    return {pixel[0], pixel[1], pixel[2]};
}

void SetPixel(DibImage& image, std::int32_t x, std::int32_t y, const Bgr& colour, int alpha) {
    std::uint8_t* const pixel = image.Row(y) + 4 * x;
    pixel[0] = static_cast<std::uint8_t>(colour.Blue);
    pixel[1] = static_cast<std::uint8_t>(colour.Green);
    pixel[2] = static_cast<std::uint8_t>(colour.Red);
    pixel[3] = static_cast<std::uint8_t>(alpha);
}

int PlainMix(int source, int background, int alpha) {
    if (alpha == 255) return source;
    if (alpha == 0) return background;
    return (source * alpha + background * (255 - alpha) + 255) / 256 % 256;
}

Bgr PlainRecolour(const Bgr& colour, int style) {
    cHSV hsv;
    hsv.R = static_cast<std::int16_t>(colour.Red);
    hsv.G = static_cast<std::int16_t>(colour.Green);
    hsv.B = static_cast<std::int16_t>(colour.Blue);
    hsv.ToHsv();
    hsv.V = style == 4 ? 80.0f : 0.0f;
    hsv.ToRgb();
    return {hsv.B, hsv.G, hsv.R};
}

Bgr PlainStyle(const Bgr& colour, int style) {
    switch (style) {
    case 0: return {colour.Blue, colour.Blue, colour.Blue};
    case 1: return {colour.Green, colour.Green, colour.Green};
    case 2: return {colour.Red, colour.Red, colour.Red};
    case 3: return colour;
    default: return PlainRecolour(colour, style);
    }
}

Bgr PlainPixel(const Bgr& colour, int alpha, const Bgr& background, int style) {
    const Bgr source = PlainStyle(colour, style);
    return {PlainMix(source.Blue, background.Blue, alpha), PlainMix(source.Green, background.Green, alpha),
            PlainMix(source.Red, background.Red, alpha)};
}

// One pixel through Composite.
Bgr Mixed(const Bgr& colour, int alpha, std::uint8_t style, BackgroundSource* background) {
    DibImage image = NewTransparentImage(1, 1);
    SetPixel(image, 0, 0, colour, alpha);
    image = Composite(image, style, background);
    CHECK(image.BitCount == 24);
    CHECK(!image.IsTopDown);
    CHECK(!image.IsTransparent);
    return PixelAt(image, 0, 0);
}

} // namespace

TEST_CASE("all styles mix every pair of alpha and source as the plain formulas do") {
    KnownBackground background;
    for (const std::uint8_t style : Bytes{0, 1, 2, 3, 4, 5, 255}) {
        CAPTURE(style);
        DibImage image = NewTransparentImage(256, 256);
        const auto colourAt = [](int source) { return Bgr{source, (source * 5 + 40) % 256, 255 - source}; };
        for (int alpha = 0; alpha < 256; ++alpha) {
            for (int source = 0; source < 256; ++source)
                SetPixel(image, source, alpha, colourAt(source), alpha);
        }
        image = Composite(image, style, &background);
        int wrong = 0;
        for (int y = 0; y < 256; ++y) {
            for (int x = 0; x < 256; ++x) {
                wrong += PixelAt(image, x, y) != PlainPixel(colourAt(x), y, KnownBackground::At(x, y), style);
            }
        }
        CHECK(wrong == 0);
    }
}

TEST_CASE("the one formula gives the source at alpha 255 and the background at 0, over all values") {
    int wrong = 0;
    for (unsigned alpha = 0; alpha < 256; ++alpha) {
        for (unsigned source = 0; source < 256; ++source) {
            for (unsigned background = 0; background < 256; ++background) {
                // The channels differ, so that none shows in another.
                const auto expected = [&](unsigned from, unsigned to) {
                    return static_cast<std::uint32_t>(
                        PlainMix(static_cast<int>(from), static_cast<int>(to), static_cast<int>(alpha)));
                };
                const std::uint32_t mixed =
                    MixColours(source | (255 - source) << 8 | source << 16,
                               background | source << 8 | (255 - background) << 16, alpha);
                wrong += (mixed & 0xFF) != expected(source, background);
                wrong += (mixed >> 8 & 0xFF) != expected(255 - source, source);
                wrong += mixed >> 16 != expected(source, 255 - background);
            }
        }
    }
    CHECK(wrong == 0);
}

TEST_CASE("a fully transparent pixel shows the background pixel exactly") {
    KnownBackground background;
    DibImage image = NewTransparentImage(5, 3);
    image = Composite(image, 3, &background);
    for (int y = 0; y < 3; ++y) {
        for (int x = 0; x < 5; ++x) CHECK(PixelAt(image, x, y) == KnownBackground::At(x, y));
    }
}

TEST_CASE("alpha 128, source 255 and background 0 give 128") {
    CHECK(Mixed({255, 255, 255}, 128, 3, nullptr) == Bgr{128, 128, 128});
}

TEST_CASE("with style 2 a pure blue opaque pixel is black and a pure red one white") {
    CHECK(Mixed({255, 0, 0}, 255, 2, nullptr) == Bgr{0, 0, 0});
    CHECK(Mixed({0, 0, 255}, 255, 2, nullptr) == Bgr{255, 255, 255});
}

TEST_CASE("with style 4 an opaque white pixel is grey level 204, with style 5 every opaque pixel is black") {
    CHECK(Mixed({255, 255, 255}, 255, 4, nullptr) == Bgr{204, 204, 204});
    for (int level = 0; level < 256; level += 5)
        CHECK(Mixed({level, 255 - level, 77}, 255, 5, nullptr) == Bgr{0, 0, 0});
}

TEST_CASE("black is recoloured like any other colour, at the very first pixel too") {
    CHECK(Mixed({0, 0, 0}, 255, 4, nullptr) == Bgr{204, 204, 204});
    DibImage image = NewTransparentImage(3, 1);
    SetPixel(image, 0, 0, {0, 0, 0}, 255);
    SetPixel(image, 1, 0, {255, 255, 255}, 255);
    SetPixel(image, 2, 0, {0, 0, 0}, 255);
    image = Composite(image, 4, nullptr);
    for (int x = 0; x < 3; ++x) CHECK(PixelAt(image, x, 0) == Bgr{204, 204, 204});
}

TEST_CASE("colours that come back are recoloured as they were, after however many others") {
    constexpr int Colours = 40, Width = 2 * Colours;
    DibImage image = NewTransparentImage(Width, Colours);
    const auto colourAt = [](int x, int y) {
        const int number = x % (y + 1); // in row y as many colours take turns
        return Bgr{number, 255 - 6 * number, 3 * number};
    };
    for (int y = 0; y < Colours; ++y) {
        for (int x = 0; x < Width; ++x) SetPixel(image, x, y, colourAt(x, y), 255);
    }
    image = Composite(image, 4, nullptr);
    for (int y = 0; y < Colours; ++y) {
        CAPTURE(y);
        int wrong = 0;
        for (int x = 0; x < Width; ++x) wrong += PixelAt(image, x, y) != PlainRecolour(colourAt(x, y), 4);
        CHECK(wrong == 0);
    }
}

TEST_CASE("without a background the picture is mixed with black") {
    CHECK(Mixed({200, 100, 50}, 0, 3, nullptr) == Bgr{0, 0, 0});
    CHECK(Mixed({200, 100, 50}, 255, 3, nullptr) == Bgr{200, 100, 50});
}

TEST_CASE("a picture with alpha comes upright") {
    KnownBackground background;
    DibImage image = DecodePng(
        PictureWith({.Width = 1, .Height = 2, .ColourType = 6}, {0, 10, 20, 30, 255, 0, 40, 50, 60, 255}));
    REQUIRE(image.IsTransparent);
    image = Composite(image, 3, &background);
    CHECK(PixelAt(image, 0, 0) == Bgr{30, 20, 10});
    CHECK(PixelAt(image, 0, 1) == Bgr{60, 50, 40});
}

} // namespace vantik

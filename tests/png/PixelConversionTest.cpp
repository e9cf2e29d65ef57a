#include <doctest/doctest.h>

#include "png/ColourTables.h"
#include "tests/RunTimeErrors.h"
#include "tests/png/BitWriter.h"
#include "tests/png/DecodedPng.h"

namespace vantik {

namespace {

const Bytes BlackRedGreen = {0, 0, 0, 255, 0, 0, 0, 255, 0};

int BitCountOf(std::uint8_t type, std::uint8_t depth, std::uint8_t interlace,
               const ConversionSettings& settings) {
    const HeaderFields fields = {.BitDepth = depth, .ColourType = type, .Interlace = interlace};
    return DecodePng(PictureWith(fields, Bytes(9), BlackRedGreen), settings).BitCount;
}

} // namespace

TEST_CASE("the bitmap's depth follows colour type, bit depth and interlacing") {
    struct Row {
        std::uint8_t Type, Depth;
        int Plain, Interlaced;
    };
    const Row table[] = {{0, 1, 1, 8},   {0, 2, 8, 8},    {0, 4, 4, 8},    {0, 8, 8, 8},   {0, 16, 8, 8},
                         {2, 8, 24, 24}, {2, 16, 24, 24}, {3, 1, 1, 8},    {3, 2, 8, 8},   {3, 4, 4, 8},
                         {3, 8, 8, 8},   {4, 8, 32, 32},  {4, 16, 32, 32}, {6, 8, 32, 32}, {6, 16, 32, 32}};
    for (const Row& row : table) {
        CAPTURE(row.Type);
        CAPTURE(row.Depth);
        CHECK(BitCountOf(row.Type, row.Depth, 0, Nothing) == row.Plain);
        CHECK(BitCountOf(row.Type, row.Depth, 1, Nothing) == row.Interlaced);
    }
}

TEST_CASE(
    "a 2-colour palette image of 1 bit keeps its own colours, with a 3-entry PLTE it is black and white") {
    const HeaderFields fields = {.Width = 2, .BitDepth = 1, .ColourType = 3};
    CHECK(RgbaOf(PictureWith(fields, {0, 0x40}, {1, 2, 3, 4, 5, 6})) == Bytes{1, 2, 3, 255, 4, 5, 6, 255});
    CHECK(RgbaOf(PictureWith(fields, {0, 0x40}, BlackRedGreen)) == Bytes{0, 0, 0, 255, 255, 255, 255, 255});
    CHECK(RgbaOf(PictureWith(fields, {0, 0x40}, {1, 2, 3})) == Bytes{0, 0, 0, 255, 255, 255, 255, 255});
    CHECK(RgbaOf(PictureWith(fields, {0, 0x40})) == Bytes{0, 0, 0, 255, 255, 255, 255, 255});
}

TEST_CASE("a 16-bit grey image is drawn from the high bytes only") {
    const HeaderFields fields = {.BitDepth = 16, .ColourType = 0};
    CHECK(RgbaOf(PictureWith(fields, {0, 0x12, 0xFF})) == Bytes{0x12, 0x12, 0x12, 255});
}

TEST_CASE("an RGB + alpha image without applied alpha is opaque, its colour values unchanged") {
    const HeaderFields fields = {.ColourType = 6};
    const DibImage image = DecodePng(PictureWith(fields, {0, 10, 20, 30, 5}), Nothing);
    CHECK(image.BitCount == 32);
    CHECK(!image.IsTransparent);
    CHECK(ToRgba(image) == Bytes{10, 20, 30, 255});
}

TEST_CASE("palette entries beyond PLTE are black") {
    const HeaderFields fields = {.Width = 2, .BitDepth = 4, .ColourType = 3};
    CHECK(RgbaOf(PictureWith(fields, {0, 0x1F}, BlackRedGreen)) == Bytes{255, 0, 0, 255, 0, 0, 0, 255});
    // An entry cut short is none.
    CHECK(RgbaOf(PictureWith(fields, {0, 0x10}, {9, 9, 9, 8, 8})) == Bytes{0, 0, 0, 255, 9, 9, 9, 255});
    const Bytes tooMany(3 * 300, 7);
    CHECK(RgbaOf(PictureWith({.BitDepth = 8, .ColourType = 3}, {0, 255}, tooMany)) == Bytes{7, 7, 7, 255});
}

TEST_CASE("rows are padded to whole double words, and the padding is zero") {
    const DibImage image =
        DecodePng(PictureWith({.Width = 1, .Height = 2, .ColourType = 2}, {0, 1, 2, 3, 0, 4, 5, 6}));
    REQUIRE(image.Stride() == 4);
    CHECK(Bytes(image.Row(0), image.Row(0) + 4) == Bytes{3, 2, 1, 0});
    CHECK(Bytes(image.Row(1), image.Row(1) + 4) == Bytes{6, 5, 4, 0});
}

TEST_CASE("the grey ramp of a depth d has level i x 255 / (2^d - 1)") {
    CHECK(GreyPalette(1, 2) == ColourTable{0, 0xFFFFFF});
    CHECK(GreyPalette(2, 4) == ColourTable{0, 0x555555, 0xAAAAAA, 0xFFFFFF});
    CHECK(GreyPalette(2, 256)[4] == 0);
    for (std::uint32_t i = 0; i < 16; ++i) CHECK(GreyPalette(4, 16)[i] == i * 0x111111);
    for (std::uint32_t i = 0; i < 256; ++i) CHECK(GreyPalette(16, 256)[i] == i * 0x010101);
}

TEST_CASE("tRNS marks one grey level as transparent, compared at the image's own depth") {
    const auto alphas = [](std::uint8_t depth, const Bytes& row, std::uint32_t width, const Bytes& key) {
        const Bytes png = PngBytes()
                              .Header({.Width = width, .BitDepth = depth, .ColourType = 0})
                              .Chunk("tRNS", key)
                              .StoredImage(row)
                              .End();
        Bytes found;
        const Bytes rgba = RgbaOf(png);
        for (std::size_t i = 3; i < rgba.size(); i += 4) found.push_back(rgba[i]);
        return found;
    };
    CHECK(alphas(8, {0, 7, 8, 7}, 3, {0, 7}) == Bytes{0, 255, 0});
    CHECK(alphas(8, {0, 7, 8, 7}, 3, {3, 7}) == Bytes{0, 255, 0}); // only the lowest bits of the key count
    CHECK(alphas(2, {0, 0x6C}, 3, {0, 2}) == Bytes{255, 0, 255});
    CHECK(alphas(16, {0, 1, 7, 1, 8, 2, 7}, 3, {1, 7}) == Bytes{0, 255, 255}); // both bytes of a sample
    CHECK(alphas(8, {0, 7, 8, 7}, 3, {7}) == Bytes{255, 255, 255});            // too short to name one
}

TEST_CASE("tRNS marks one RGB colour as transparent, and gives palette entries their alpha") {
    const Bytes rgb = PngBytes()
                          .Header({.Width = 2, .ColourType = 2})
                          .Chunk("tRNS", {0, 1, 0, 2, 0, 3})
                          .StoredImage({0, 1, 2, 3, 1, 2, 4})
                          .End();
    CHECK(RgbaOf(rgb) == Bytes{1, 2, 3, 0, 1, 2, 4, 255});
    const Bytes palette = PngBytes()
                              .Header({.Width = 3, .ColourType = 3})
                              .Chunk("PLTE", BlackRedGreen)
                              .Chunk("tRNS", {0, 128})
                              .StoredImage({0, 0, 1, 2})
                              .End();
    CHECK(RgbaOf(palette) == Bytes{0, 0, 0, 0, 255, 0, 0, 128, 0, 255, 0, 255}); // beyond tRNS: 255
    CHECK(ToRgba(DecodePng(palette, Nothing)) == Bytes{0, 0, 0, 255, 255, 0, 0, 255, 0, 255, 0, 255});
}

TEST_CASE("tRNS means nothing to pictures with an alpha channel") {
    const auto picture = [](std::uint8_t type, const Bytes& row, const Bytes& key) {
        return PngBytes().Header({.ColourType = type}).Chunk("tRNS", key).StoredImage(row).End();
    };
    const PngBytes grey = picture(4, {0, 7, 99}, {0, 7});
    const PngBytes colour = picture(6, {0, 1, 2, 3, 99}, {0, 1, 0, 2, 0, 3});
    CHECK(RgbaOf(grey) == Bytes{7, 7, 7, 99});
    CHECK(RgbaOf(colour) == Bytes{1, 2, 3, 99});
    for (const PngBytes& png : {grey, colour}) {
        const DibImage image = DecodePng(png, {.AppliesTransparency = true, .AppliesAlpha = false});
        CHECK(!image.IsTransparent);
        CHECK(image.IsTopDown);
    }
}

TEST_CASE("unconverted pictures of type 4 have the palette's colours with 4 bits and grey ones with 8") {
    const Bytes palette = {1, 2, 3, 4, 5, 6};
    const HeaderFields four = {.Width = 2, .BitDepth = 4, .ColourType = 4};
    CHECK(RgbaOf(PictureWith(four, {0, 0x01, 0}, palette)) == Bytes{1, 2, 3, 255, 4, 5, 6, 255});
    const HeaderFields eight = {.Width = 2, .BitDepth = 8, .ColourType = 4, .Interlace = 2};
    CHECK(RgbaOf(PictureWith(eight, {0, 1}, palette)) == Bytes{0, 0, 0, 255, 1, 1, 1, 255});
    const HeaderFields one = {.Width = 2, .BitDepth = 1, .ColourType = 4};
    CHECK(RgbaOf(PictureWith(one, {0, 0x40}, palette)) == Bytes{0, 0, 0, 255, 255, 255, 255, 255});
}

TEST_CASE("faults of the stream behind the last scanline show, too") {
    BitWriter bits;
    bits.Block(true, 1);
    for (int i = 0; i < 4 + 101; ++i) bits.Fixed(0); // the scanline and the room behind it
    BitWriter tooMany = bits;
    tooMany.Fixed(0);
    const auto raised = [](BitWriter stream) {
        Bytes data = {0x78, 0x9C};
        Append(data, stream.Fixed(256).Bytes());
        return NumberRaisedBy([&] { DecodePng(PngBytes().Header({}).Chunk("IDAT", data).End()); });
    };
    CHECK(raised(bits) == 0);
    CHECK(raised(tooMany) == 9);
}

TEST_CASE("colour types and bit depths that nothing is defined for") {
    CHECK(BitCountOf(5, 16, 0, Everything) == 0);
    CHECK(BitCountOf(1, 8, 0, Everything) == 8);
    CHECK(BitCountOf(7, 1, 0, Everything) == 1);
    CHECK(BitCountOf(7, 4, 1, Everything) == 4);
    CHECK(BitCountOf(3, 16, 0, Everything) == 0);
    CHECK(BitCountOf(2, 2, 0, Everything) == 0);
    CHECK(BitCountOf(2, 4, 0, Everything) == 4); // the unconverted samples as a bitmap of that depth
    CHECK(BitCountOf(6, 1, 0, Everything) == 1);
    CHECK(BitCountOf(4, 13, 0, Everything) == 0);
    CHECK(BitCountOf(6, 12, 0, Everything) == 0);
}

TEST_CASE("unconverted samples are the bitmap's bytes, filled up with zeros") {
    const DibImage image =
        DecodePng(PictureWith({.Width = 2, .BitDepth = 4, .ColourType = 2}, {0, 0x12, 0x34, 0x56}));
    REQUIRE(image.Stride() == 4);
    CHECK(Bytes(image.Row(0), image.Row(0) + 4) == Bytes{0x12, 0x34, 0x56, 0});
    const DibImage none = DecodePng(PictureWith({.Width = 2, .BitDepth = 8, .ColourType = 7}, {0}));
    REQUIRE(none.BitCount == 8);
    CHECK(Bytes(none.Row(0), none.Row(0) + 4) == Bytes(4, 0));
}

TEST_CASE("a width or height below 1 gives no picture and no error") {
    for (const std::uint32_t extent : {0u, 0x80000000u, 0xFFFFFFFFu}) {
        CHECK(!DecodePng(PictureWith({.Width = extent}, {0, 1, 2, 3})));
        CHECK(!DecodePng(PictureWith({.Height = extent}, {0, 1, 2, 3})));
    }
}

TEST_CASE("sizes beyond 1 GiB of buffers end in error 7, and those the data cannot hold in error 9") {
    const auto raised = [](const HeaderFields& fields) {
        return NumberRaisedBy([&] { DecodePng(PictureWith(fields, {0, 1, 2, 3})); });
    };
    CHECK(raised({.Width = 0x7FFFFFFF, .Height = 0x7FFFFFFF, .BitDepth = 16, .ColourType = 6}) == 7);
    CHECK(raised({.Width = 0x7FFFFFFF, .Height = 1, .ColourType = 6}) == 7);
    CHECK(raised({.Width = 1, .Height = 0x7FFFFFFF, .ColourType = 6}) == 7);
    CHECK(raised({.Width = 20000, .Height = 20000, .ColourType = 6}) == 7);
    // 20 bytes a pixel, 8 of them for the samples that interlacing has taken apart; this is too little data (9) for one that fits.
    CHECK(raised({.Width = 8000, .Height = 7500, .BitDepth = 16, .ColourType = 6, .Interlace = 1}) == 7);
    CHECK(raised({.Width = 8000, .Height = 5000, .BitDepth = 16, .ColourType = 6, .Interlace = 1}) == 9);
    CHECK(raised({.Width = 8000, .Height = 8000, .ColourType = 6}) == 9);
    CHECK(raised({.Width = 300, .Height = 300, .ColourType = 6}) == 9);
    CHECK(raised({.Width = 255, .Height = 255, .BitDepth = 255, .ColourType = 6}) == 9);
}

TEST_CASE("image data shorter than the zlib header raises a subscript error") {
    const Bytes one = PngBytes().Header({}).Chunk("IDAT", {0x78}).End();
    const Bytes two = PngBytes().Header({}).Chunk("IDAT", {0x78, 1}).End();
    CHECK(NumberRaisedBy([&] { DecodePng(one); }) == 9);
    CHECK(NumberRaisedBy([&] { DecodePng(two); }) == 9);
}

} // namespace vantik

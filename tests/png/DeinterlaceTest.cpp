#include <doctest/doctest.h>

#include "png/Deinterlace.h"
#include "tests/RunTimeErrors.h"
#include "tests/png/DecodedPng.h"

namespace vantik {

namespace {

// Which pass of Adam7 a pixel belongs to, by the definition's own 8 x 8 square.
constexpr const char* PassSquare[8] = {"16462646", "77777777", "56565656", "77777777",
                                       "36463646", "77777777", "56565656", "77777777"};

struct GreyPicture {
    std::uint32_t Width;
    std::uint32_t Height;
    Bytes Levels;
};

GreyPicture Counting(std::uint32_t width, std::uint32_t height) {
    GreyPicture picture = {width, height, Bytes(width * height)};
    for (std::size_t i = 0; i < picture.Levels.size(); ++i)
        picture.Levels[i] = static_cast<std::uint8_t>(i * 37 + 11);
    return picture;
}

// The rows of all passes, filtered with Up, so that the first row of each pass shows what lies above it.
Bytes Interlace(const GreyPicture& picture) {
    Bytes rows;
    for (char pass = '1'; pass <= '7'; ++pass) {
        Bytes prior(picture.Width);
        for (std::uint32_t y = 0; y < picture.Height; ++y) {
            Bytes row;
            for (std::uint32_t x = 0; x < picture.Width; ++x) {
                if (PassSquare[y % 8][x % 8] == pass) row.push_back(picture.Levels[y * picture.Width + x]);
            }
            if (row.empty()) continue;
            rows.push_back(2);
            for (std::size_t i = 0; i < row.size(); ++i)
                rows.push_back(static_cast<std::uint8_t>(row[i] - prior[i]));
            prior = row;
        }
    }
    return rows;
}

Bytes LevelsOf(const DibImage& image) {
    Bytes levels;
    const Bytes rgba = ToRgba(image);
    for (std::size_t i = 0; i < rgba.size(); i += 4) levels.push_back(rgba[i]);
    return levels;
}

} // namespace

TEST_CASE("the pixels of every pass go to their places, the first row of every pass against zeros") {
    for (std::uint32_t width = 1; width <= 20; ++width) {
        for (std::uint32_t height = 1; height <= 20; ++height) {
            const GreyPicture picture = Counting(width, height);
            const HeaderFields fields = {.Width = width, .Height = height, .ColourType = 0, .Interlace = 1};
            CHECK(LevelsOf(DecodePng(PictureWith(fields, Interlace(picture)))) == picture.Levels);
        }
    }
}

TEST_CASE("an interlaced image of one pixel has data only in pass 1") {
    const HeaderFields fields = {.ColourType = 0, .Interlace = 1};
    CHECK(LevelsOf(DecodePng(PictureWith(fields, {0, 99}))) == Bytes{99});
    CHECK(NumberRaisedBy([&] { DecodePng(PictureWith(fields, {0})); }) == 9);
}

TEST_CASE("an interlaced image 5 pixels wide has 1 pixel per row in passes 1 and 2 and 2 in pass 3") {
    CHECK(PassWidth(5, "1") == 1);
    CHECK(PassWidth(5, "5") == 1);
    CHECK(PassWidth(5, "15") == 2);
    CHECK(PassWidth(4, "5") == 0);
    CHECK(PassWidth(21, "1357") == 2 * 4 + 3);
    CHECK(PassWidth(0x7FFFFFFF, "12345678") == 0x7FFFFFFF);
}

TEST_CASE("samples are split most significant first") {
    const auto split = [](const Bytes& packed, std::size_t count, int bits) {
        Bytes samples(count);
        SplitBits(packed.data(), samples.data(), count, bits);
        return samples;
    };
    CHECK(split({0xB1}, 8, 1) == Bytes{1, 0, 1, 1, 0, 0, 0, 1});
    CHECK(split({0xB1}, 4, 2) == Bytes{2, 3, 0, 1});
    CHECK(split({0xB1, 0x20}, 3, 4) == Bytes{11, 1, 2});
}

TEST_CASE("an interlaced 1-bit image comes out with one byte per pixel, holding 0 or 1") {
    const HeaderFields fields = {.Width = 2, .Height = 2, .BitDepth = 1, .ColourType = 0, .Interlace = 1};
    // Pass 1: (0,0); pass 6: (1,0); pass 7: row 1.
    const DibImage image = DecodePng(PictureWith(fields, {0, 0x80, 0, 0x00, 0, 0xC0}));
    CHECK(image.BitCount == 8);
    CHECK(image.Row(0)[0] == 1);
    CHECK(image.Row(0)[1] == 0);
    CHECK(image.Row(1)[0] == 1);
    CHECK(image.Row(1)[1] == 1);
    CHECK(LevelsOf(image) == Bytes{255, 0, 255, 255});
}

TEST_CASE("tall narrow interlaced images of few bits exceed the room for their scanlines and raise") {
    // The size is row bytes x height + height, but 9 columns of 1 bit need 4.25 bytes a row: the formula is kept.
    const auto raised = [](std::uint32_t height) {
        const HeaderFields fields = {
            .Width = 9, .Height = height, .BitDepth = 1, .ColourType = 0, .Interlace = 1};
        return NumberRaisedBy([&] { DecodePng(PictureWith(fields, Bytes(height * 17 / 4))); });
    };
    CHECK(raised(400) == 0); // the allowance of 100 bytes still covers it
    CHECK(raised(408) == 9);
}

TEST_CASE(
    "with any other interlace method nothing is converted: the inflated bytes are the bitmap's as they are") {
    const auto decode = [](std::uint8_t type, std::uint8_t depth, const Bytes& inflated) {
        const HeaderFields fields = {
            .Width = 5, .Height = 2, .BitDepth = depth, .ColourType = type, .Interlace = 2};
        return DecodePng(PictureWith(fields, inflated));
    };
    const Bytes inflated = {1, 10, 20, 30, 40, 50, 60, 70, 80, 90};
    const DibImage image = decode(0, 8, inflated);
    REQUIRE(image.BitCount == 8);
    CHECK(Bytes(image.Row(0), image.Row(0) + 8) == Bytes{1, 10, 20, 30, 40, 50, 60, 70});
    CHECK(Bytes(image.Row(1), image.Row(1) + 8) == Bytes{80, 90, 0, 0, 0, 0, 0, 0});
    CHECK(decode(2, 8, inflated).BitCount == 8);
    CHECK(decode(6, 16, inflated).BitCount == 0);
    CHECK(decode(3, 2, inflated).BitCount == 0);
}

TEST_CASE("with any other interlace method too few scanlines raise nothing") {
    for (const std::uint8_t interlace : Bytes{2, 3, 255}) {
        const HeaderFields fields = {.Width = 100, .Height = 9, .ColourType = 0, .Interlace = interlace};
        const DibImage image = DecodePng(PictureWith(fields, {7}));
        CHECK(image.Row(0)[0] == 7);
        CHECK(image.Row(0)[1] == 0);
    }
}

TEST_CASE("interlaced samples of a width that nobody can split raise") {
    const HeaderFields fields = {.Width = 8, .Height = 8, .BitDepth = 3, .ColourType = 0, .Interlace = 1};
    CHECK(NumberRaisedBy([&] { DecodePng(PictureWith(fields, Bytes(60))); }) == 9);
}

} // namespace vantik

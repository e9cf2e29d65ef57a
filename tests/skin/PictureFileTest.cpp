#include "skin/PictureFile.h"

#include <doctest/doctest.h>

#include <initializer_list>

#include "tests/skin/BitmapFile.h"

namespace vantik {

namespace {

using Depths = std::initializer_list<std::uint16_t>;

bool IsWhole(const BitmapFile& file) { return IsWholePicture(file.File()); }

// And one byte less is too little.
bool IsJustWhole(const BitmapFile& file) {
    Bytes bytes = file.File();
    bytes.pop_back();
    return IsWhole(file) && !IsWholePicture(bytes);
}

BitmapFile Rle(std::uint16_t bits, const Bytes& runs) {
    return {.Bits = bits,
            .Compression = bits == 8 ? 1u : 2u,
            .ImageSize = static_cast<std::uint32_t>(runs.size()),
            .TableSize = 4u << bits,
            .Pixels = runs};
}

} // namespace

TEST_CASE(
    "bitmaps of every legal header and depth are whole when all their rows are there, and not a byte "
    "earlier") {
    for (const std::uint32_t header : {40u, 52u, 56u, 64u, 108u, 124u})
        for (const std::int32_t height : {3, -3}) {
            CAPTURE(header);
            CAPTURE(height);
            CHECK(IsJustWhole({.HeaderSize = header, .Height = height}));
            CHECK(IsJustWhole({.HeaderSize = header, .Height = height, .Bits = 16, .Pixels = Bytes(36)}));
            CHECK(IsJustWhole({.HeaderSize = header, .Height = height, .Bits = 32, .Pixels = Bytes(60)}));
            for (const std::uint16_t bits : Depths{1, 4, 8}) {
                CAPTURE(bits);
                const std::size_t stride = bits == 8 ? 8 : 4;
                CHECK(IsJustWhole({.HeaderSize = header,
                                   .Height = height,
                                   .Bits = bits,
                                   .TableSize = 4u << bits,
                                   .Pixels = Bytes(3 * stride)}));
            }
        }
}

TEST_CASE("bitmaps of the old core header are whole with colours of three bytes") {
    CHECK(IsJustWhole({.HeaderSize = 12}));
    CHECK(IsJustWhole({.HeaderSize = 12, .Bits = 8, .TableSize = 768, .Pixels = Bytes(24)}));
    CHECK(IsJustWhole({.HeaderSize = 12, .Bits = 1, .TableSize = 6, .Pixels = Bytes(12)}));
}

TEST_CASE("masks of colours follow the old header and stand in the newer ones") {
    CHECK(IsJustWhole({.Bits = 16, .Compression = 3, .TableSize = 12, .Pixels = Bytes(36)}));
    CHECK(IsJustWhole({.Bits = 32, .Compression = 3, .TableSize = 12, .Pixels = Bytes(60)}));
    CHECK(IsJustWhole({.HeaderSize = 108, .Bits = 32, .Compression = 3, .Pixels = Bytes(60)}));
    CHECK_FALSE(IsWhole({.Bits = 24, .Compression = 3, .TableSize = 12}));
    CHECK_FALSE(IsWhole({.Bits = 8, .Compression = 3, .TableSize = 1024 + 12}));
}

TEST_CASE("a header that promises more rows than the file holds") {
    CHECK_FALSE(IsWhole({.Width = 214, .Height = 100000, .Pixels = Bytes(306)}));
    CHECK_FALSE(IsWhole({.Height = 4}));
    CHECK_FALSE(IsWhole({.Height = -4}));
    CHECK_FALSE(IsWhole({.Width = 6}));
    CHECK_FALSE(IsWhole({.Width = INT32_MAX, .Height = INT32_MAX}));
    CHECK_FALSE(IsWhole({.Width = INT32_MAX, .Height = INT32_MIN}));
}

TEST_CASE("widths and heights that are none") {
    CHECK_FALSE(IsWhole({.Width = 0}));
    CHECK_FALSE(IsWhole({.Width = -5}));
    CHECK_FALSE(IsWhole({.Height = 0}));
}

TEST_CASE("at most 64 million pixels") {
    CHECK(IsWhole({.Width = 8000, .Height = 8000, .Bits = 1, .TableSize = 8, .Pixels = Bytes(8'000'000)}));
    CHECK_FALSE(
        IsWhole({.Width = 8001, .Height = 8000, .Bits = 1, .TableSize = 8, .Pixels = Bytes(9'000'000)}));
}

TEST_CASE("offsets of pixels outside the file or inside the header") {
    CHECK_FALSE(IsWhole({.OffsetShift = 1})); // the last row is cut
    CHECK_FALSE(IsWhole({.OffsetShift = 49}));
    CHECK_FALSE(IsWhole({.OffsetShift = 0x7FFFFFFF}));
    CHECK_FALSE(IsWhole({.OffsetShift = 0xF0000000}));
    CHECK_FALSE(IsWhole({.OffsetShift = -1}));
    CHECK_FALSE(IsWhole({.OffsetShift = -54}));
    CHECK(IsWhole({.Pixels = Bytes(50), .OffsetShift = 2})); // a gap is legal
}

TEST_CASE("colours that are not all there, or more than an index can name") {
    const auto indexed = [](std::uint32_t used, std::size_t table, std::size_t pixels) {
        return IsWhole({.Width = 1,
                        .Height = 1,
                        .Bits = 8,
                        .ColoursUsed = used,
                        .TableSize = table,
                        .Pixels = Bytes(pixels)});
    };
    CHECK(indexed(0, 1024, 4));
    CHECK_FALSE(indexed(0, 1000, 4));
    CHECK(indexed(3, 12, 4));
    CHECK_FALSE(indexed(3, 4, 4));
    CHECK_FALSE(indexed(257, 4 * 257, 4));
    CHECK_FALSE(indexed(0xFFFFFFFF, 1024, 4));
    CHECK_FALSE(IsWhole({.ColoursUsed = 0x40000000}));
}

TEST_CASE("depths, planes and compressions that there are not") {
    for (const std::uint16_t bits : Depths{0, 2, 3, 7, 15, 31, 33, 64, 65535})
        CHECK_FALSE(IsWhole({.Bits = bits, .TableSize = 1024, .Pixels = Bytes(4000)}));
    CHECK_FALSE(IsWhole({.Planes = 0}));
    CHECK_FALSE(IsWhole({.Planes = 3}));
    for (const std::uint32_t compression : {1u, 2u, 4u, 5u, 6u, 0xFFFFFFFFu})
        CHECK_FALSE(IsWhole({.Compression = compression, .ImageSize = 48}));
    for (const std::uint32_t header : {0u, 11u, 13u, 16u, 39u, 41u, 125u})
        CHECK_FALSE(IsWhole({.HeaderSize = header, .TableSize = 200}));
}

TEST_CASE("a file that ends inside its headers") {
    for (const std::uint32_t header : {12u, 40u, 124u}) {
        const Bytes file = BitmapFile{.HeaderSize = header}.File();
        for (std::size_t length = 0; length < file.size(); ++length)
            CHECK_FALSE(
                IsWholePicture(Bytes(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length))));
    }
    Bytes huge = BitmapFile().File();
    huge[14] = huge[15] = huge[16] = huge[17] = 0xFF; // the header's own size
    CHECK_FALSE(IsWholePicture(huge));
}

TEST_CASE("run lengths are followed through the data") {
    for (const std::uint16_t bits : Depths{4, 8}) {
        CAPTURE(bits);
        CHECK(IsWhole(Rle(bits, {5, 1, 0, 0, 5, 2, 0, 1}))); // runs, a row's end, the end
        CHECK(IsWhole(Rle(bits, {0, 2, 1, 1, 5, 2, 0, 0}))); // a jump, and no end
        CHECK(IsJustWhole(Rle(bits, {0, 1})));
        CHECK_FALSE(IsWhole(Rle(bits, {5, 1, 5})));            // half a run
        CHECK_FALSE(IsWhole(Rle(bits, {5, 1, 0, 2, 1})));      // half a jump
        CHECK_FALSE(IsWhole(Rle(bits, {0, 255, 1, 2, 3, 4}))); // literals behind the end
    }
    CHECK(IsJustWhole(Rle(8, {0, 3, 1, 2, 3, 0}))); // padded to a whole word
    CHECK(IsJustWhole(Rle(4, {0, 5, 0x12, 0x34, 0x50, 0})));
    CHECK(IsJustWhole(Rle(4, {0, 4, 0x12, 0x34})));
}

TEST_CASE("run lengths need the size of their data, and rows from the bottom") {
    BitmapFile file = Rle(8, {5, 1, 0, 1});
    file.ImageSize = 5;
    CHECK_FALSE(IsWhole(file));
    file.ImageSize = 0;
    CHECK_FALSE(IsWhole(file));
    file.ImageSize = 4;
    CHECK(IsWhole(file));
    file.Height = -3;
    CHECK_FALSE(IsWhole(file));
    file = Rle(8, {5, 1, 0, 1});
    file.Compression = 2;
    CHECK_FALSE(IsWhole(file));
}

TEST_CASE("other formats of the loader pass, and what is none of them does not") {
    for (const Bytes& beginning : {Bytes{'G', 'I', 'F', '8', '9', 'a'}, Bytes{0xFF, 0xD8, 0xFF, 0xE0},
                                   Bytes{0x89, 'P', 'N', 'G', 13, 10, 26, 10}, Bytes{0xD7, 0xCD, 0xC6, 0x9A},
                                   Bytes{0, 0, 1, 0, 1, 0, 16, 16}, Bytes{1, 0, 0, 0, 108, 0, 0, 0}}) {
        Bytes file = beginning;
        file.resize(200);
        CHECK(IsWholePicture(file));
    }
    CHECK_FALSE(IsWholePicture({}));
    CHECK_FALSE(IsWholePicture(Bytes{'B'}));
    CHECK_FALSE(IsWholePicture(Bytes{'n', 'o', ' ', 'p', 'i', 'c', 't', 'u', 'r', 'e'}));
}

TEST_CASE("a bitmap behind something that only looks like a header is not reached") {
    const Bytes bitmap = BitmapFile{.Width = 214, .Height = 100000}.File();
    for (const Bytes& front : {Bytes{'l', 't', 0, 0, 102, 0, 0, 0}, Bytes{'a', 'b', 'c', 'd', 102, 0, 0, 0},
                               Bytes{0, 0, 1, 0, 102, 0, 0, 0}, Bytes{0x89, 'P', 'N', 'G', 102, 0, 0, 0}}) {
        Bytes file = front;
        file.insert(file.end(), bitmap.begin(), bitmap.end());
        CHECK_FALSE(IsWholePicture(file));
    }
}

} // namespace vantik

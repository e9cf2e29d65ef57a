// What hostile files and missing memory may do: cost no more than stated, and end in an error.
#include <doctest/doctest.h>

#include <algorithm>

#include "png/Composite.h"
#include "tests/RunTimeErrors.h"
#include "tests/png/BitWriter.h"
#include "tests/png/DecodedPng.h"
#include "tests/png/limits/Allocations.h"
#include "tests/png/limits/HostilePictures.h"
#include "tests/png/limits/ProcessorTime.h"
#include "tests/png/limits/Slowness.h"

namespace vantik {

namespace {

// On the machine that Slowness compares others with.
constexpr double MaxSeconds = 2;

void DecodeAndMix(const Bytes& png, const ConversionSettings& settings, std::uint8_t style) {
    DibImage image = DecodePng(png, settings);
    if (image.IsTransparent) image = Composite(image, style, nullptr);
}

// What comes of a picture: a bitmap, or the number of an error that hostile ones may raise.
using Outcomes = std::vector<int>;
const Outcomes Decoded = {0};
const Outcomes DecodedOrRefused = {0, 7, 9};

double SecondsOfDecoding(const Bytes& png, const ConversionSettings& settings, const Outcomes& outcomes) {
    const double start = ProcessorSeconds();
    const int raised = NumberRaisedBy([&] { DecodeAndMix(png, settings, 4); });
    const double seconds = ProcessorSeconds() - start;
    CHECK(std::count(outcomes.begin(), outcomes.end(), raised) == 1);
    return seconds;
}

void CheckCost(const Bytes& png, const ConversionSettings& settings,
               const Outcomes& outcomes = DecodedOrRefused) {
    REQUIRE(png.size() <= 65536);
    allocations::TakePeak();
    double seconds = SecondsOfDecoding(png, settings, outcomes);
    CHECK(allocations::TakePeak() < MaxBytes);
    double allowed = MaxSeconds; // more on a slow machine only, which may be slow for a while
    for (int tries = 3; seconds >= allowed && tries > 0; --tries) {
        const double before = Slowness();
        seconds = SecondsOfDecoding(png, settings, outcomes);
        allowed = MaxSeconds * std::max(before, Slowness());
    }
    CHECK(seconds < allowed);
}

// Ten pictures that take different ways through the decoder.
std::vector<Bytes> TenPictures() {
    std::vector<Bytes> pictures;
    const Bytes palette = {1, 2, 3, 4, 5, 6};
    const auto add = [&](const HeaderFields& fields, std::size_t rows) {
        PngBytes png;
        png.Header(fields).Chunk("PLTE", palette).Chunk("tEXt", BytesOf("a text long enough for the heap"));
        pictures.push_back(png.Chunk("tRNS", {0, 1, 0, 2, 0, 3}).StoredImage(Bytes(rows)).End());
    };
    add({.Width = 3, .Height = 2, .ColourType = 2}, 20);
    add({.Width = 3, .Height = 2, .ColourType = 6}, 26);
    add({.Width = 3, .Height = 2, .ColourType = 4}, 14);
    add({.Width = 3, .Height = 2, .BitDepth = 16, .ColourType = 6}, 50);
    add({.Width = 9, .Height = 9, .BitDepth = 1, .ColourType = 3, .Interlace = 1}, 60);
    add({.Width = 9, .Height = 9, .BitDepth = 2, .ColourType = 0}, 36);
    add({.Width = 9, .Height = 9, .BitDepth = 4, .ColourType = 3}, 54);
    add({.Width = 3, .Height = 3, .BitDepth = 8, .ColourType = 6, .Interlace = 1}, 60);
    BitWriter fixed;
    fixed.Block(true, 1).Fixed(0).Fixed(1).Fixed(2).Fixed(3).Fixed(256);
    Bytes stream = {0x78, 0x9C};
    Append(stream, fixed.Bytes());
    pictures.push_back(
        PngBytes().Header({}).Chunk("zTXt", {'k', 0, 0, 0x78, 0x9C, 0x4B, 0x4C}).Chunk("IDAT", stream).End());
    Bytes run = {0x78, 0x9C};
    Append(run, LongRun(64));
    pictures.push_back(
        PngBytes().Header({.Width = 20, .Height = 20, .ColourType = 0}).Chunk("IDAT", run).End());
    return pictures;
}

} // namespace

TEST_CASE("no input of 64 KB takes over 2 s or 1.1 GiB") {
    struct Kind {
        std::uint8_t Type, Depth;
    };
    const Kind kinds[] = {{0, 1}, {0, 8}, {0, 16}, {2, 8},  {3, 1}, {3, 2},
                          {3, 8}, {4, 8}, {6, 8},  {6, 16}, {2, 4}};
    for (const Kind& kind : kinds) {
        for (const std::uint8_t interlace : Bytes{0, 1}) {
            for (const std::uint32_t width : {4000u, 60'000'000u}) {
                // The tallest picture that the data can fill, and one whose other buffers fit the memory, too.
                const std::uint64_t bits = std::uint64_t{kind.Depth} * (kind.Type == 2   ? 3
                                                                        : kind.Type == 4 ? 2
                                                                        : kind.Type == 6 ? 4
                                                                                         : 1);
                const std::uint64_t rowBytes = (width * bits + 7) / 8 + 1 + interlace % 2;
                for (const std::uint64_t raw : {60'000'000u, 12'000'000u}) {
                    const auto height = static_cast<std::uint32_t>(raw / rowBytes);
                    CAPTURE(kind.Type);
                    CAPTURE(kind.Depth);
                    CAPTURE(interlace);
                    CAPTURE(width);
                    CAPTURE(height);
                    const HeaderFields fields = {.Width = width,
                                                 .Height = height,
                                                 .BitDepth = kind.Depth,
                                                 .ColourType = kind.Type,
                                                 .Interlace = interlace};
                    CheckCost(HostilePicture(fields), Everything);
                }
            }
        }
    }
}

TEST_CASE("64 KB that say millions of rows take no longer") {
    struct Kind {
        std::uint32_t Width, Height;
        std::uint8_t Interlace, Filter;
    };
    // As many rows as the data has bytes for, or the memory, which pixels of 32 bits fill.
    const Kind kinds[] = {{1, 32'800'000, 0, 1}, {1, 32'800'000, 0, 4}, {1, 32'800'000, 1, 2},
                          {1, 32'800'000, 1, 4}, {2, 32'800'000, 0, 3}, {2, 21'800'000, 1, 3},
                          {3, 29'000'000, 0, 3}};
    for (const Kind& kind : kinds) {
        CAPTURE(kind.Width);
        CAPTURE(kind.Interlace);
        CAPTURE(kind.Filter);
        const HeaderFields fields = {.Width = kind.Width,
                                     .Height = kind.Height,
                                     .BitDepth = 2,
                                     .ColourType = 3,
                                     .Interlace = kind.Interlace};
        CheckCost(HostilePicture(fields, 64000, {kind.Filter, 0x1B}), Everything, Decoded);
    }
}

TEST_CASE("64 KB that say pixels of ever other colours take no longer") {
    // Each is recoloured.
    for (const std::uint8_t interlace : Bytes{0, 1}) {
        CAPTURE(interlace);
        const HeaderFields fields = {
            .Width = 4000, .Height = 16'000, .ColourType = 3, .Interlace = interlace};
        CheckCost(HostilePicture(fields, 64000, {0, 3, 1, 2}), Everything, Decoded);
    }
    const HeaderFields fields = {.Width = 4000, .Height = 4100, .ColourType = 6};
    CheckCost(HostilePicture(fields, 64000, {2, 128, 255}), Everything, Decoded);
}

TEST_CASE("few bytes that hold a tall interlaced column are not taken for too few") {
    // Each of its rows belongs to one pass alone: 2 bytes, where the room for the scanlines has 3.
    constexpr std::uint32_t Height = 110'000;
    Bytes data = {0x78, 0x9C};
    Append(data, LongRun(236));
    const HeaderFields fields = {.Height = Height, .BitDepth = 1, .ColourType = 0, .Interlace = 1};
    DibImage image;
    CHECK(NumberRaisedBy([&] {
              image = DecodePng(PngBytes().Header(fields).Chunk("IDAT", data).End(), Everything);
          }) == 0);
    REQUIRE(image.BitCount == 8);
    Bytes expected;
    for (std::uint32_t y = 0; y < Height; ++y) Append(expected, {0, 0, 0, 255});
    CHECK(ToRgba(image) == expected);
}

TEST_CASE("bytes that cannot hold their picture are refused before it takes memory") {
    for (const std::uint8_t interlace : Bytes{0, 1}) {
        CAPTURE(interlace);
        const HeaderFields fields = {.Width = 5000, .Height = 5000, .ColourType = 0, .Interlace = interlace};
        const Bytes png = HostilePicture(fields, 64);
        allocations::TakePeak();
        CHECK(NumberRaisedBy([&] { DecodePng(png, Everything); }) == 9);
        CHECK(allocations::TakePeak() < 1'000'000);
    }
}

TEST_CASE("64 KB of tiny blocks take no longer") {
    BitWriter bits;
    while (bits.Bytes().size() < 60000) {
        bits.Block(false, 1).Fixed('x').Fixed(256);
    }
    Bytes data = {0x78, 0x9C};
    Append(data, bits.Bytes());
    CheckCost(PngBytes().Header({.Width = 100, .Height = 100, .ColourType = 0}).Chunk("IDAT", data).End(),
              Everything);
}

TEST_CASE("64 KB of chunks take no longer") {
    PngBytes png;
    png.Header({});
    while (png.All().size() < 65000) png.Chunk("tEXt", {'x'}).Chunk("zTXt", {'k', 0, 0, 0x78, 0x9C, 0x4B});
    CheckCost(png.End(), Everything);
}

TEST_CASE("whichever allocation fails, error 7 comes back and nothing leaks") {
    for (const Bytes& png : TenPictures()) {
        const std::size_t before = allocations::LiveBlocks();
        long number = 0;
        for (bool isDone = false; !isDone; ++number) {
            allocations::FailAt(number);
            const int raised = NumberRaisedBy([&] { DecodeAndMix(png, Everything, 4); });
            allocations::FailNone();
            isDone = raised == 0;
            CHECK((raised == 0 || raised == 7));
            CHECK(allocations::LiveBlocks() == before);
            if (number > 1000) FAIL("the decoder never gets through");
        }
        CHECK(number > 3);
    }
}

TEST_CASE("a reader keeps little memory for the next picture, however large the last one was") {
    constexpr std::size_t Kept = 256 * 1024;
    const std::size_t before = allocations::LiveBytes();
    PngReader reader;
    const auto read = [&](const Bytes& png) {
        MemorySource source(png);
        CHECK(reader.Read(source));
    };
    const HeaderFields fields = {.Width = 4000, .Height = 1000, .ColourType = 6};
    read(PngBytes().Header(fields).Chunk("tEXt", Bytes(1 << 20, 'x')).StoredImage(Bytes(16'001'000)).End());
    CHECK(reader.Decode(Nothing));
    read(HostilePicture(fields));
    CHECK(reader.Decode(Nothing));
    reader.Reset();
    CHECK(allocations::LiveBytes() - before < Kept);
}

TEST_CASE("a reader that ran out of memory reads the same picture well afterwards") {
    for (const Bytes& png : TenPictures()) {
        const Bytes expected = ToRgba(DecodePng(png, Everything));
        int raised = 7;
        for (long number = 0; raised != 0; ++number) {
            PngReader reader;
            const auto decode = [&] {
                MemorySource source(png);
                return reader.Read(source) ? reader.Decode(Everything) : DibImage();
            };
            allocations::FailAt(number);
            raised = NumberRaisedBy([&] { decode(); });
            allocations::FailNone();
            CHECK(ToRgba(decode()) == expected);
            if (number > 1000) FAIL("the decoder never gets through");
        }
    }
}

} // namespace vantik

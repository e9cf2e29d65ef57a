// What drawing one picture may take of the process's memory: the decoder's buffers, the copy of the background and the
// system's own bitmaps.
#include <doctest/doctest.h>

#include <algorithm>

#include "png/PicturePlan.h"
#include "png/PixelConversion.h"
#include "render/PngIconDrawing.h"
#include "tests/RunTimeErrors.h"
#include "tests/gfx/TestSurface.h"
#include "tests/png/TemporaryFile.h"
#include "tests/png/limits/HostilePictures.h"

#include <psapi.h>

namespace vantik {

namespace {

// Since the process began.
std::uint64_t PeakBytes() {
    PROCESS_MEMORY_COUNTERS counters = {};
    REQUIRE(GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters));
    return std::max(counters.PeakPagefileUsage, counters.PeakWorkingSetSize);
}

struct Drawn {
    int Raised = 0;
    bool IsBitmap = false;
};

Drawn Draw(const Bytes& png) {
    const TemporaryFile file("drawing_limits.png", png);
    test::TestSurface surface(16, 16);
    Drawn drawn;
    drawn.Raised = NumberRaisedBy([&] {
        drawn.IsBitmap = static_cast<bool>(
            DrawPngFile(file.Path(), surface.DC(), surface.Bitmap(), 0, 0, 3, 0, surface.DC()));
    });
    return drawn;
}

constexpr std::uint32_t Width = 20000;

const Bytes Palette(6, 1), Transparency(6);

// Of a stream that inflates to all scanlines.
std::size_t StreamSize(const HeaderFields& fields, std::uint32_t height) {
    constexpr std::uint64_t Channels[] = {1, 1, 3, 1, 2, 1, 4};
    const std::uint64_t bits = Channels[fields.ColourType] * fields.BitDepth;
    const std::uint64_t raw = std::uint64_t{height} * (2 + fields.Width * bits / 8);
    return static_cast<std::size_t>(raw / 1000 + 64);
}

// Its chunks count, too.
bool FitsMemory(HeaderFields fields, bool isTransparent, std::uint32_t height) {
    PngContents png;
    png.ImageData = Bytes(2 + StreamSize(fields, height));
    png.Palette = Palette;
    if (isTransparent) png.Transparency = Transparency;
    png.Header = {static_cast<std::int32_t>(fields.Width),
                  static_cast<std::int32_t>(height),
                  fields.BitDepth,
                  fields.ColourType,
                  0,
                  0,
                  fields.Interlace};
    png.HasTransparency = isTransparent;
    const ConversionSettings all = {.AppliesTransparency = true, .AppliesAlpha = true};
    return NumberRaisedBy([&] { PlanPicture(png, all); }) != 7;
}

// The tallest picture of this kind that is not refused.
std::uint32_t TallestOf(const HeaderFields& fields, bool isTransparent) {
    std::uint32_t drawn = 1, refused = 1'000'000;
    while (refused - drawn > 1) {
        const std::uint32_t middle = (drawn + refused) / 2;
        (FitsMemory(fields, isTransparent, middle) ? drawn : refused) = middle;
    }
    return drawn;
}

Bytes PictureOf(const HeaderFields& fields, bool isTransparent) {
    Bytes data = {0x78, 0x9C};
    Append(data, LongRun(StreamSize(fields, fields.Height)));
    PngBytes png;
    png.Header(fields).Chunk("PLTE", Palette);
    if (isTransparent) png.Chunk("tRNS", Transparency);
    return png.Chunk("IDAT", data).End();
}

void CheckTallest(HeaderFields fields, bool isTransparent) {
    fields.Width = Width;
    fields.Height = TallestOf(fields, isTransparent);
    const Drawn drawn = Draw(PictureOf(fields, isTransparent));
    if (sizeof(void*) == 8) { // the smaller process may not have so much in one piece
        CHECK(drawn.Raised == 0);
        CHECK(drawn.IsBitmap);
    }
    CHECK(PeakBytes() < MaxBytes);
    ++fields.Height;
    CHECK(Draw(PictureOf(fields, isTransparent)).Raised == 7);
}

} // namespace

TEST_CASE("a few bytes that say a picture of 30,000 x 16,000 are refused") {
    const HeaderFields fields = {.Width = 30000, .Height = 16000, .ColourType = 1};
    const Bytes png = HostilePicture(fields, 64);
    CHECK(png.size() < 200);
    CHECK(Draw(png).Raised == 7);
    CHECK(PeakBytes() < MaxBytes);
}

TEST_CASE("the largest picture of each kind that is drawn takes no more of the process than 1.1 GiB") {
    struct Kind {
        std::uint8_t Type, Depth, Interlace;
        bool IsTransparent;
    };
    const Kind kinds[] = {{0, 1, 0, false}, {0, 8, 1, true},  {3, 4, 0, true},  {2, 16, 0, false},
                          {2, 8, 0, true},  {4, 8, 0, false}, {6, 8, 0, false}, {6, 16, 1, false}};
    for (const Kind& kind : kinds) {
        CAPTURE(kind.Type);
        CAPTURE(kind.Depth);
        CAPTURE(kind.Interlace);
        CheckTallest({.BitDepth = kind.Depth, .ColourType = kind.Type, .Interlace = kind.Interlace},
                     kind.IsTransparent);
    }
}

} // namespace vantik

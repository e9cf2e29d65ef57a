// Every operation against the plainest loops over pixels.
#include "gfx/pcMemDC.h"

#include <doctest/doctest.h>

#include <memory>
#include <random>

#include "tests/RunTimeErrors.h"
#include "tests/gfx/GdiObjects.h"
#include "tests/gfx/TestSurface.h"

using namespace vantik;
using namespace vantik::test;

namespace {

constexpr std::uint32_t Key = 0xFF00FF;
constexpr std::int32_t TargetExtent = 60;

// A patterned picture in which about a third of the pixels have the key colour.
Pixels WithKey(std::int32_t width, std::int32_t height, std::uint32_t seed) {
    std::mt19937 random(seed + 1);
    Pixels pixels = Patterned(width, height, seed);
    for (std::uint32_t& value : pixels.Values)
        if (random() % 3 == 0) value = Key;
    return pixels;
}

std::shared_ptr<const PixelRows> RowsOf(const Pixels& content) {
    return std::make_shared<PixelRows>(PixelRows{content.Width, content.Height, content.Values});
}

// A surface that holds the picture, and the same picture for the loops.
struct Source {
    explicit Source(const Pixels& content) : Content(content) {
        Surface.CreateFromPicture(PictureOf(content).Get());
    }
    // Rows are borrowed until somebody needs more of the surface than they have.
    Source(const Pixels& content, const std::shared_ptr<const PixelRows>& rows) : Content(content) {
        Surface.CreateFromRows(rows);
    }
    Pixels Content;
    pcMemDC Surface;
};

struct Target {
    Pixels Before = Patterned(TargetExtent, TargetExtent, 77);
    TestSurface Surface{Before};
    Pixels Expected = Before;

    std::string Result() const { return Difference(Surface.Read(), Expected); }
};

using DrawOperation = void (pcMemDC::*)(HDC, std::int32_t, std::int32_t, std::int32_t, std::int32_t,
                                        std::int32_t, std::int32_t, bool);
using StretchOperation = void (pcMemDC::*)(HDC, std::int32_t, std::int32_t, std::int32_t, std::int32_t,
                                           std::int32_t, std::int32_t, std::int32_t, std::int32_t);

POINT Turned(Turn turn, std::int32_t i, std::int32_t j, std::int32_t height) {
    switch (turn) {
    case Turn::Transposed: return {j, i};
    case Turn::Clockwise: return {height - 1 - j, i};
    case Turn::Flipped: return {i, height - 1 - j};
    default: return {i, j};
    }
}

// The loops that define Draw and the Plg family.
void PlainDraw(Turn turn, const Pixels& source, Pixels& target, POINT from, SIZE size, POINT to,
               bool useMask) {
    for (std::int32_t i = 0; i < size.cx; ++i) {
        for (std::int32_t j = 0; j < size.cy; ++j) {
            if (!source.Has(from.x + i, from.y + j)) continue;
            const std::uint32_t pixel = source.At(from.x + i, from.y + j);
            const POINT at = Turned(turn, i, j, size.cy);
            if (!useMask || pixel != Key) target.Set(to.x + at.x, to.y + at.y, pixel);
        }
    }
}

// The loops that define the turned Stretch family.
void PlainRepeat(Turn turn, const Pixels& source, Pixels& target, POINT from, std::int32_t height, POINT to,
                 std::int32_t repeats) {
    for (std::int32_t j = 0; j < height; ++j) {
        for (std::int32_t i = 0; i < repeats; ++i) {
            const POINT at = Turned(turn, i, j, height);
            if (source.Has(from.x, from.y + j))
                target.Set(to.x + at.x, to.y + at.y, source.At(from.x, from.y + j));
        }
    }
}

constexpr struct {
    Turn Is;
    DrawOperation Draw;
} DrawOperations[] = {{Turn::Plain, &pcMemDC::Draw},
                      {Turn::Transposed, &pcMemDC::Plg90Draw},
                      {Turn::Clockwise, &pcMemDC::Plg270Draw},
                      {Turn::Flipped, &pcMemDC::Plg180Draw}};

} // namespace

TEST_CASE("a new object has no surface, and drawing from it has no effect") {
    pcMemDC surface;
    CHECK(surface.width() == 0);
    CHECK(surface.height() == 0);
    CHECK(surface.hdc() == nullptr);
    Target target;
    const HDC dc = target.Surface.DC();
    for (const auto& operation : DrawOperations) {
        (surface.*operation.Draw)(dc, 0, 0, 5, 5, 1, 1, false);
        (surface.*operation.Draw)(dc, 0, 0, 0, 0, 1, 1, true);
    }
    surface.StretchDraw(dc, 0, 0, 5, 5);
    surface.Stretch90Draw(dc, 0, 0, 5, 5);
    surface.Stretch180Draw(dc, 0, 0, 5, 5, 0, 0, 1, 4);
    surface.Stretch270Draw(dc, 0, 0, 5, 5, 0, 0, 1, 4);
    CHECK(target.Result() == "same");
}

TEST_CASE(
    "setting width to a smaller value leaves it unchanged, to a larger one re-creates the surface and clears "
    "it") {
    Source source(Patterned(9, 7, 1));
    source.Surface.width(8);
    source.Surface.height(-3);
    source.Surface.width(9);
    source.Surface.height(7);
    CHECK(source.Surface.width() == 9);
    CHECK(source.Surface.height() == 7);
    CHECK(GetPixel(source.Surface.hdc(), 8, 6) != 0);
    source.Surface.width(10);
    CHECK(source.Surface.width() == 10);
    CHECK(source.Surface.height() == 7);
    CHECK(GetPixel(source.Surface.hdc(), 8, 6) == 0);
    source.Surface.height(8);
    CHECK(source.Surface.width() == 10);
    CHECK(source.Surface.height() == 8);
}

TEST_CASE("a surface that cannot be had leaves the object without one") {
    pcMemDC surface;
    surface.width(5);
    surface.height(5);
    surface.width(2147483647);
    CHECK(surface.hdc() == nullptr);
    CHECK(surface.width() == 0);
    CHECK(surface.height() == 0);
}

TEST_CASE("a surface grows to its picture and never shrinks") {
    Source source(Patterned(9, 7, 1));
    CHECK(source.Surface.width() == 9);
    CHECK(source.Surface.height() == 7);
    source.Surface.CreateFromPicture(PictureOf(Patterned(4, 3, 3)).Get());
    TestSurface around(9, 7);
    source.Surface.Draw(around.DC(), 0, 0, 9, 7);
    Pixels both = source.Content;
    for (std::int32_t y = 0; y < 3; ++y)
        for (std::int32_t x = 0; x < 4; ++x) both.Set(x, y, Patterned(4, 3, 3).At(x, y));
    CHECK(Difference(around.Read(), both) == "same");
    source.Surface.CreateFromPicture(PictureOf(Patterned(4, 20, 2)).Get());
    CHECK(source.Surface.width() == 9);
    CHECK(source.Surface.height() == 20);
    TestSurface target(4, 20);
    source.Surface.Draw(target.DC(), 0, 0, 4, 20);
    CHECK(Difference(target.Read(), Patterned(4, 20, 2)) == "same");
}

TEST_CASE("an object without a bitmap changes no surface") {
    Source source(Patterned(9, 7, 1));
    source.Surface.CreateFromPicture(nullptr);
    PICTDESC none = {};
    none.cbSizeofstruct = sizeof none;
    none.picType = PICTYPE_NONE;
    ComPtr<IPictureDisp> empty;
    OleCreatePictureIndirect(&none, IID_IPictureDisp, TRUE, empty.PutVoid());
    source.Surface.CreateFromPicture(empty.Get());
    CHECK(source.Surface.width() == 9);
    CHECK(BitmapSizeOf(empty.Get()).cx == 0);
    CHECK(BitmapSizeOf(PictureOf(Patterned(9, 7, 1)).Get()).cy == 7);
}

TEST_CASE("a new picture is drawn from then on, turned and masked too") {
    Source source(WithKey(9, 7, 1));
    Target target;
    source.Surface.Plg90Draw(target.Surface.DC(), 0, 0, 0, 0, 3, 3, true);
    source.Content = WithKey(9, 7, 2);
    source.Surface.CreateFromPicture(PictureOf(source.Content).Get());
    target.Surface.Write(target.Before);
    source.Surface.Plg90Draw(target.Surface.DC(), 0, 0, 0, 0, 3, 3, true);
    PlainDraw(Turn::Transposed, source.Content, target.Expected, {0, 0}, {9, 7}, {3, 3}, true);
    CHECK(target.Result() == "same");
}

TEST_CASE("what others draw on the surface is drawn from then on, turned and masked too") {
    Source source(WithKey(9, 7, 1));
    Target target;
    const HDC dc = source.Surface.hdc();
    source.Surface.Plg270Draw(target.Surface.DC(), 0, 0, 0, 0, 3, 3, true);
    SetPixel(dc, 2, 3, RGB(1, 2, 3));
    source.Content.Set(2, 3, 0x010203);
    target.Surface.Write(target.Before);
    source.Surface.Plg270Draw(target.Surface.DC(), 0, 0, 0, 0, 3, 3, true);
    PlainDraw(Turn::Clockwise, source.Content, target.Expected, {0, 0}, {9, 7}, {3, 3}, true);
    CHECK(target.Result() == "same");
}

TEST_CASE("Draw with WidthSrc 0 and HeightSrc 0 copies the whole surface") {
    Source source(Patterned(9, 7, 1));
    Target target;
    source.Surface.Draw(target.Surface.DC(), 0, 0, 0, 0, 5, 6);
    PlainDraw(Turn::Plain, source.Content, target.Expected, {0, 0}, {9, 7}, {5, 6}, false);
    CHECK(target.Result() == "same");
}

TEST_CASE("omitted arguments are 0") {
    Source source(Patterned(9, 7, 1));
    Target target;
    source.Surface.Plg90Draw(target.Surface.DC());
    PlainDraw(Turn::Transposed, source.Content, target.Expected, {0, 0}, {9, 7}, {0, 0}, false);
    CHECK(target.Result() == "same");
}

TEST_CASE("StretchDraw stretches, and draws nothing for a WidthDst of 0") {
    Source source(Patterned(4, 3, 1));
    Target target;
    source.Surface.StretchDraw(target.Surface.DC(), 5, 6, 0, 9, 0, 0, 4, 3);
    CHECK(target.Result() == "same");
    source.Surface.StretchDraw(target.Surface.DC(), 5, 6, 8, 9, 1, 0, 2, 0);
    for (std::int32_t y = 0; y < 9; ++y)
        for (std::int32_t x = 0; x < 8; ++x)
            target.Expected.Set(5 + x, 6 + y, source.Content.At(1 + x / 4, y / 3));
    CHECK(target.Result() == "same");
}

TEST_CASE("borrowed rows are stretched as the platform does it, inside and across the edges") {
    const std::uint32_t seed = std::random_device{}();
    CAPTURE(seed);
    std::mt19937 random(seed);
    const auto between = [&](std::int32_t low, std::int32_t high) {
        return std::uniform_int_distribution<std::int32_t>(low, high)(random);
    };
    // Of several lines drawn as one the platform keeps another one of rows than of surfaces.
    const auto ends = [&](std::int32_t low, std::int32_t high) {
        return between(0, 1) ? between(low, high) : -between(low, high);
    };
    const Pixels content = Patterned(19, 13, seed);
    const auto rows = RowsOf(content);
    TestSurface platform(content);
    for (int round = 0; round < 1000; ++round) {
        Source borrowed(content, rows);
        const POINT from = {between(-4, 20), between(-4, 14)}, to = {between(-5, 50), between(-5, 50)};
        const SIZE size = {between(1, 22), between(1, 16)}, stretched = {ends(2, 22), ends(2, 16)};
        Target target;
        TestSurface expected(target.Before);
        borrowed.Surface.StretchDraw(target.Surface.DC(), to.x, to.y, stretched.cx, stretched.cy, from.x,
                                     from.y, size.cx, size.cy);
        StretchBlt(expected.DC(), to.x, to.y, stretched.cx, stretched.cy, platform.DC(), from.x, from.y,
                   size.cx, size.cy, SRCCOPY);
        target.Expected = expected.Read();
        CAPTURE(round);
        REQUIRE(target.Result() == "same");
    }
}

TEST_CASE("one pixel stretched over a large area fills it, and a pixel that does not exist fills nothing") {
    Source source(Patterned(4, 3, 1));
    TestSurface target(Patterned(100, 90, 5));
    Pixels expected = target.Read();
    for (std::int32_t y = 0; y < 80; ++y)
        for (std::int32_t x = 0; x < 90; ++x) expected.Set(5 + x, 6 + y, source.Content.At(2, 1));
    SetDCBrushColor(target.DC(), RGB(1, 2, 3));
    source.Surface.StretchDraw(target.DC(), 5, 6, 90, 80, 2, 1, 1, 1);
    source.Surface.StretchDraw(target.DC(), 5, 6, 90, 80, 4, 1, 1, 1);
    CHECK(Difference(target.Read(), expected) == "same");
    CHECK(GetDCBrushColor(target.DC()) == RGB(1, 2, 3));
}

TEST_CASE(
    "Stretch270Draw of a 1 x 21 strip at WidthDst 0, HeightDst 5 writes 21 x 5 pixels, top pixel rightmost") {
    Source source(Patterned(6, 21, 1));
    Target target;
    source.Surface.Stretch270Draw(target.Surface.DC(), 10, 12, 0, 5, 4, 0, 1, 21);
    for (std::int32_t j = 0; j < 21; ++j)
        for (std::int32_t i = 0; i < 5; ++i)
            target.Expected.Set(10 + 20 - j, 12 + i, source.Content.At(4, j));
    CHECK(target.Result() == "same");
}

TEST_CASE("Stretch180Draw repeats the column upside down over WidthDst columns") {
    Source source(Patterned(6, 21, 1));
    Target target;
    source.Surface.Stretch180Draw(target.Surface.DC(), 10, 12, 7, 0, 4, 2, 5, 9);
    for (std::int32_t j = 0; j < 9; ++j)
        for (std::int32_t i = 0; i < 7; ++i)
            target.Expected.Set(10 + i, 12 + 8 - j, source.Content.At(4, 2 + j));
    CHECK(target.Result() == "same");
}

TEST_CASE("Stretch90Draw lays the column out as a row above the stretched image") {
    Source source(Patterned(4, 3, 1));
    Target target;
    source.Surface.Stretch90Draw(target.Surface.DC(), 5, 6, 8, 9, 0, 0, 4, 3);
    for (std::int32_t y = 0; y < 9; ++y)
        for (std::int32_t x = 0; x < 8; ++x)
            target.Expected.Set(5 + x, 6 + y, source.Content.At(x / 2, y / 3));
    PlainRepeat(Turn::Transposed, source.Content, target.Expected, {0, 0}, 3, {5, 6}, 9);
    CHECK(target.Result() == "same");
}

TEST_CASE("Stretch90Draw of a narrower image is the turned column alone") {
    Source source(Patterned(6, 21, 1));
    Target target;
    source.Surface.Stretch90Draw(target.Surface.DC(), 5, 6, 21, 9, 2, 0, 1, 21);
    PlainRepeat(Turn::Transposed, source.Content, target.Expected, {2, 0}, 21, {5, 6}, 9);
    CHECK(target.Result() == "same");
}

TEST_CASE("Stretch90Draw with a negative extent paints the mirrored image and, over no rows, no column") {
    for (const SIZE extent : {SIZE{-8, 9}, SIZE{-8, -9}, SIZE{8, -9}, SIZE{-2, 4}, SIZE{2, -4}}) {
        CAPTURE(extent.cx);
        CAPTURE(extent.cy);
        Source source(Patterned(4, 3, 1));
        Target target;
        source.Surface.Stretch90Draw(target.Surface.DC(), 30, 31, extent.cx, extent.cy, 1, 0, 1, 3);
        TestSurface expected(target.Before);
        StretchBlt(expected.DC(), 30, 31, extent.cx, extent.cy, source.Surface.hdc(), 1, 0, 1, 3, SRCCOPY);
        target.Expected = expected.Read();
        CHECK(Difference(target.Expected, target.Before) != "same");
        PlainRepeat(Turn::Transposed, source.Content, target.Expected, {1, 0}, 3, {30, 31}, extent.cy);
        CHECK(target.Result() == "same");
    }
}

TEST_CASE("turned columns are exact whatever stretching mode the destination has, and leave it that mode") {
    Source source(Patterned(6, 21, 1));
    Target target;
    SetStretchBltMode(target.Surface.DC(), HALFTONE);
    source.Surface.Stretch270Draw(target.Surface.DC(), 10, 12, 0, 30, 4, 0, 1, 21);
    PlainRepeat(Turn::Clockwise, source.Content, target.Expected, {4, 0}, 21, {10, 12}, 30);
    CHECK(target.Result() == "same");
    CHECK(GetStretchBltMode(target.Surface.DC()) == HALFTONE);
}

TEST_CASE("Plg90Draw of a 3 x 2 rectangle gives a 2 x 3 image whose pixel (1, 2) is source pixel (2, 1)") {
    Source source(Patterned(3, 2, 1));
    Target target;
    source.Surface.Plg90Draw(target.Surface.DC(), 0, 0, 3, 2, 0, 0);
    CHECK(target.Surface.Read().At(1, 2) == source.Content.At(2, 1));
    CHECK(target.Surface.Read().At(2, 0) == target.Before.At(2, 0));
    CHECK(target.Surface.Read().At(0, 3) == target.Before.At(0, 3));
}

TEST_CASE("Draw with UseMask leaves every destination pixel under a 0xFF00FF source pixel untouched") {
    Source source(WithKey(9, 7, 1));
    Target target;
    source.Surface.Draw(target.Surface.DC(), 0, 0, 0, 0, 5, 6, true);
    PlainDraw(Turn::Plain, source.Content, target.Expected, {0, 0}, {9, 7}, {5, 6}, true);
    CHECK(target.Result() == "same");
}

TEST_CASE("only the exact key colour is transparent") {
    Pixels nearly(6, 1);
    nearly.Values = {0xFF00FF, 0xFF00FE, 0xFE00FF, 0xFF01FF, 0x00FF00, 0xFFFFFF};
    Source source(nearly);
    Target target;
    source.Surface.Draw(target.Surface.DC(), 0, 0, 0, 0, 5, 6, true);
    PlainDraw(Turn::Plain, nearly, target.Expected, {0, 0}, {6, 1}, {5, 6}, true);
    CHECK(target.Result() == "same");
}

TEST_CASE("the mask does not depend on the colours that the destination is set to") {
    Source source(WithKey(9, 7, 1));
    Target target;
    SetBkColor(target.Surface.DC(), RGB(10, 200, 30));
    SetTextColor(target.Surface.DC(), RGB(100, 20, 130));
    source.Surface.Plg180Draw(target.Surface.DC(), 0, 0, 0, 0, 5, 6, true);
    PlainDraw(Turn::Flipped, source.Content, target.Expected, {0, 0}, {9, 7}, {5, 6}, true);
    CHECK(target.Result() == "same");
    CHECK(GetBkColor(target.Surface.DC()) == RGB(10, 200, 30));
    CHECK(GetTextColor(target.Surface.DC()) == RGB(100, 20, 130));
}

TEST_CASE("every operation equals its loops over random rectangles, inside and across the edges") {
    const std::uint32_t seed = std::random_device{}();
    CAPTURE(seed);
    std::mt19937 random(seed);
    const auto between = [&](std::int32_t low, std::int32_t high) {
        return std::uniform_int_distribution<std::int32_t>(low, high)(random);
    };
    const Pixels content = WithKey(19, 13, seed);
    const auto rows = RowsOf(content);
    Source surface(content);
    for (int round = 0; round < 1000; ++round) {
        Source borrowed(content, rows);
        Source& source = round % 2 ? borrowed : surface;
        const auto& operation = DrawOperations[between(0, 3)];
        const POINT from = {between(-4, 20), between(-4, 14)}, to = {between(-5, 50), between(-5, 50)};
        const SIZE given = {between(-1, 22), between(-1, 16)};
        const SIZE size = {given.cx > 0 ? given.cx : 19, given.cy > 0 ? given.cy : 13};
        const bool useMask = between(0, 1) == 1;
        Target target;
        (source.Surface.*operation.Draw)(target.Surface.DC(), from.x, from.y, given.cx, given.cy, to.x, to.y,
                                         useMask);
        PlainDraw(operation.Is, source.Content, target.Expected, from, size, to, useMask);
        CAPTURE(round);
        REQUIRE(target.Result() == "same");
    }
}

TEST_CASE("every turned column equals its loops over random columns, inside and across the edges") {
    const std::uint32_t seed = std::random_device{}();
    CAPTURE(seed);
    std::mt19937 random(seed);
    const auto between = [&](std::int32_t low, std::int32_t high) {
        return std::uniform_int_distribution<std::int32_t>(low, high)(random);
    };
    Source source(Patterned(19, 13, seed));
    for (int round = 0; round < 500; ++round) {
        const bool clockwise = between(0, 1) == 1;
        const POINT from = {between(-2, 20), between(-4, 14)}, to = {between(-5, 50), between(-5, 50)};
        const std::int32_t given = between(-1, 16), repeats = between(-2, 20);
        Target target;
        const HDC dc = target.Surface.DC();
        if (clockwise)
            source.Surface.Stretch270Draw(dc, to.x, to.y, 3, repeats, from.x, from.y, 4, given);
        else
            source.Surface.Stretch180Draw(dc, to.x, to.y, repeats, 3, from.x, from.y, 4, given);
        PlainRepeat(clockwise ? Turn::Clockwise : Turn::Flipped, source.Content, target.Expected, from,
                    given > 0 ? given : 13, to, repeats);
        CAPTURE(round);
        REQUIRE(target.Result() == "same");
    }
}

TEST_CASE("a turned operation over more than 32767 pixels raises overflow, for its loops count in 16 bits") {
    Source source(Patterned(3, 3, 1));
    Target target;
    const HDC dc = target.Surface.DC();
    constexpr std::int32_t Most = 32767, TooMany = 32768;
    for (const auto& operation : DrawOperations) {
        if (operation.Is == Turn::Plain) continue;
        const auto draw = [&](std::int32_t width, std::int32_t height) {
            return NumberRaisedBy(
                [&] { (source.Surface.*operation.Draw)(dc, 0, 0, width, height, 0, 0, false); });
        };
        CHECK(draw(Most, 1) == 0);
        CHECK(draw(1, Most) == 0);
        CHECK(draw(TooMany, 1) == 6);
        CHECK(draw(1, TooMany) == 6);
    }
    const auto stretch = [&](StretchOperation operation, std::int32_t width, std::int32_t height,
                             std::int32_t rows) {
        return NumberRaisedBy([&] { (source.Surface.*operation)(dc, 0, 0, width, height, 0, 0, 1, rows); });
    };
    CHECK(stretch(&pcMemDC::Stretch90Draw, 1, TooMany, 1) == 6);
    CHECK(stretch(&pcMemDC::Stretch90Draw, 1, 1, TooMany) == 6);
    CHECK(stretch(&pcMemDC::Stretch90Draw, TooMany, 1, 1) == 0);
    CHECK(stretch(&pcMemDC::Stretch270Draw, TooMany, TooMany, 1) == 6);
    CHECK(stretch(&pcMemDC::Stretch270Draw, TooMany, 1, 1) == 0); // an argument that is not used
    CHECK(stretch(&pcMemDC::Stretch180Draw, TooMany, 1, 1) == 6);
    CHECK(stretch(&pcMemDC::Stretch180Draw, 1, TooMany, 1) == 0); // likewise
    CHECK(NumberRaisedBy([&] { source.Surface.Draw(dc, 0, 0, 100000, 100000, 0, 0, true); }) == 0);
}

TEST_CASE("Stretch90Draw has painted its stretched image where its loops overflow") {
    Source source(Patterned(3, 3, 1));
    Target target;
    const auto raised = [&](std::int32_t yDst, std::int32_t height) {
        return NumberRaisedBy(
            [&] { source.Surface.Stretch90Draw(target.Surface.DC(), 0, yDst, 1, height, 0, 0, 1, 3); });
    };
    TestSurface expected(target.Before);
    for (const auto& [yDst, height] : {std::pair{0, 32768}, std::pair{2147483647, 2}}) {
        StretchBlt(expected.DC(), 0, yDst, 1, height, source.Surface.hdc(), 0, 0, 1, 3, SRCCOPY);
        CHECK(raised(yDst, height) == 6);
    }
    target.Expected = expected.Read();
    CHECK(Difference(target.Expected, target.Before) != "same");
    CHECK(target.Result() == "same");
}

TEST_CASE("a coordinate of a turned operation beyond 32 bits raises overflow") {
    Source source(Patterned(3, 3, 1));
    Target target;
    constexpr std::int32_t Last = 2147483647;
    const auto draw = [&](std::int32_t xSrc, std::int32_t ySrc, std::int32_t xDst, std::int32_t yDst) {
        return NumberRaisedBy(
            [&] { source.Surface.Plg90Draw(target.Surface.DC(), xSrc, ySrc, 2, 3, xDst, yDst, false); });
    };
    CHECK(draw(Last - 1, 0, 0, 0) == 0);
    CHECK(draw(Last, 0, 0, 0) == 6);
    CHECK(draw(0, Last - 1, 0, 0) == 6);
    CHECK(draw(0, 0, Last - 1, 0) == 6); // the result is 3 wide
    CHECK(draw(0, 0, Last - 2, Last - 1) == 0);
    CHECK(draw(0, 0, 0, Last) == 6);
}

TEST_CASE("coordinates at the edges of 32 bits are no trouble for the operations without loops") {
    Source source(WithKey(3, 3, 1));
    Target target;
    constexpr std::int32_t Far = 2147483647;
    source.Surface.Draw(target.Surface.DC(), Far, Far, Far, Far, Far, Far, true);
    source.Surface.Draw(target.Surface.DC(), -Far - 1, -Far - 1, Far, Far, -Far - 1, -Far - 1, true);
    CHECK(target.Result() == "same");
}

TEST_CASE("a surface releases its GDI objects when it grows and when it ends") {
    const ComPtr<IPictureDisp> small = PictureOf(WithKey(9, 7, 1)), large = PictureOf(WithKey(30, 30, 1));
    Target target;
    const int before = GdiObjectCount();
    for (int i = 0; i < 50; ++i) {
        pcMemDC surface;
        for (const ComPtr<IPictureDisp>& picture : {small, large, small}) {
            surface.CreateFromPicture(picture.Get());
            for (const auto& operation : DrawOperations)
                (surface.*operation.Draw)(target.Surface.DC(), 0, 0, 9, 7, 1, 1, true);
        }
    }
    CHECK(GdiObjectCount() == before);
}

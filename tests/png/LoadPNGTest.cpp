#include <doctest/doctest.h>

#include "gfx/cHSV.h"
#include "png/LoadPNG.h"
#include "render/PngIconDrawing.h"
#include "tests/RunTimeErrors.h"
#include "tests/gfx/GdiObjects.h"
#include "tests/gfx/TestSurface.h"
#include "tests/png/PngBytes.h"
#include "tests/png/TemporaryFile.h"

namespace vantik {

namespace {

using test::Difference;
using test::Patterned;
using test::Pixels;
using test::TestSurface;

constexpr std::int32_t Extent = 40; // of the surfaces

std::int32_t Open(LoadPNG& png, const Bytes& bytes) {
    return png.OpenPNGfromRes(reinterpret_cast<std::uintptr_t>(bytes.data()),
                              static_cast<std::int32_t>(bytes.size()));
}

// A picture of colour type 6 in which colour and alpha vary; rows from the top.
struct AlphaPicture {
    std::uint32_t Width = 13;
    std::uint32_t Height = 9;

    static std::array<std::uint8_t, 4> At(std::uint32_t x, std::uint32_t y) {
        const auto byte = [](std::uint32_t value) { return static_cast<std::uint8_t>(value); };
        const std::uint32_t alpha = x == 0 ? 0 : x == 1 ? 255 : x * 21 + y * 3;
        return {byte(x * 19), byte(y * 28), byte(x * y * 7), byte(alpha)};
    }

    PngBytes File() const {
        Bytes rows;
        for (std::uint32_t y = 0; y < Height; ++y) {
            rows.push_back(0);
            for (std::uint32_t x = 0; x < Width; ++x) {
                const auto pixel = At(x, y);
                rows.insert(rows.end(), pixel.begin(), pixel.end());
            }
        }
        return PngBytes().Header({.Width = Width, .Height = Height, .ColourType = 6}).StoredImage(rows).End();
    }
};

unsigned PlainMix(unsigned source, unsigned background, unsigned alpha) {
    if (alpha == 255) return source;
    if (alpha == 0) return background;
    return (source * alpha + background * (255 - alpha) + 255) / 256 % 256;
}

std::uint32_t StyledColour(const std::array<std::uint8_t, 4>& rgba, int style) {
    const std::uint32_t red = rgba[0];
    const std::uint32_t green = rgba[1];
    const std::uint32_t blue = rgba[2];
    const auto grey = [](std::uint32_t level) { return level * 0x010101u; };
    if (style == 0) return grey(blue);
    if (style == 1) return grey(green);
    if (style == 2) return grey(red);
    if (style == 3) return red << 16 | green << 8 | blue;
    cHSV hsv;
    hsv.R = rgba[0];
    hsv.G = rgba[1];
    hsv.B = rgba[2];
    hsv.ToHsv();
    hsv.V = style == 4 ? 80.0f : 0.0f;
    hsv.ToRgb();
    return static_cast<std::uint32_t>(hsv.R << 16 | hsv.G << 8 | hsv.B);
}

std::uint32_t MixPixel(const std::array<std::uint8_t, 4>& rgba, int style, std::uint32_t background) {
    const std::uint32_t source = StyledColour(rgba, style);
    std::uint32_t mixed = 0;
    for (const unsigned shift : {0u, 8u, 16u}) {
        mixed |= PlainMix(source >> shift & 0xFF, background >> shift & 0xFF, rgba[3]) << shift;
    }
    return mixed;
}

// The picture mixed with what `beneath` shows at (fromX, fromY), on `target` at (x, y).
void PaintPlainly(Pixels& target, const AlphaPicture& picture, std::int32_t x, std::int32_t y, int style,
                  const Pixels& beneath, std::int32_t fromX, std::int32_t fromY) {
    for (std::int32_t j = 0; j < static_cast<std::int32_t>(picture.Height); ++j) {
        for (std::int32_t i = 0; i < static_cast<std::int32_t>(picture.Width); ++i) {
            const auto rgba = AlphaPicture::At(static_cast<std::uint32_t>(i), static_cast<std::uint32_t>(j));
            target.Set(x + i, y + j, MixPixel(rgba, style, beneath.At(fromX + i, fromY + j)));
        }
    }
}

// A picture of one colour type, drawn without any transparency.
Pixels DrawnOpaque(const Bytes& file, std::int32_t width, std::int32_t height) {
    TestSurface surface(Patterned(Extent, Extent, 5));
    LoadPNG png;
    png.PicBox(surface.DC());
    png.SetDstXY(2, 3);
    Open(png, file);
    return surface.Read().Cut(2, 3, width, height);
}

Pixels Row(std::initializer_list<std::uint32_t> colours) {
    Pixels row(static_cast<std::int32_t>(colours.size()), 1);
    row.Values = colours;
    return row;
}

} // namespace

TEST_CASE("each style draws an icon with alpha over a patterned background, pixel for pixel") {
    const AlphaPicture picture;
    const TemporaryFile file("load_png_styles.png", picture.File());
    for (const std::uint8_t style : Bytes{0, 1, 2, 3, 4, 5, 200}) {
        CAPTURE(style);
        const Pixels before = Patterned(Extent, Extent, 7u + style);
        TestSurface surface(before);
        DrawPngFile(file.Path(), surface.DC(), surface.Bitmap(), 11, 6, style, 0, surface.DC());
        Pixels expected = before;
        PaintPlainly(expected, picture, 11, 6, style, before, 11, 6);
        CHECK(Difference(surface.Read(), expected) == "same");
    }
}

TEST_CASE("the turn that some callers ask for changes nothing") {
    const AlphaPicture picture;
    const TemporaryFile file("load_png_direct.png", picture.File());
    const Pixels before = Patterned(Extent, Extent, 3);
    TestSurface plain(before);
    TestSurface turned(before);
    DrawPngFile(file.Path(), plain.DC(), plain.Bitmap(), 1, 2, 3, 0, plain.DC());
    DrawPngFile(file.Path(), turned.DC(), turned.Bitmap(), 1, 2, 3, 270, turned.DC());
    CHECK(Difference(turned.Read(), plain.Read()) == "same");
}

TEST_CASE("the background comes from the position of SetToBkgrnd, not from the destination") {
    const AlphaPicture picture;
    const Bytes file = picture.File();
    const Pixels beneath = Patterned(Extent, Extent, 1);
    const Pixels before = Patterned(Extent, Extent, 2);
    TestSurface background(beneath);
    TestSurface target(before);
    LoadPNG png;
    png.Style(3);
    png.PicBox(target.DC());
    png.SetDstXY(20, 25);
    png.SetToBkgrnd(False, 4, 9); // the flag is not consulted
    png.BackgroundHdc(background.DC());
    png.SetAlpha(True);
    CHECK(Open(png, file) == 0);
    Pixels expected = before;
    PaintPlainly(expected, picture, 20, 25, 3, beneath, 4, 9);
    CHECK(Difference(target.Read(), expected) == "same");
    CHECK(Difference(background.Read(), beneath) == "same");
}

TEST_CASE("a context that scales gets a scaled picture") {
    const Bytes rows = {0, 255, 0, 0, 0, 255, 0, 0, 0, 0, 255, 9, 8, 7};
    const Bytes file = PngBytes().Header({.Width = 2, .Height = 2, .ColourType = 2}).StoredImage(rows).End();
    const Pixels before = Patterned(Extent, Extent, 4);
    TestSurface target(before);
    SetMapMode(target.DC(), MM_ANISOTROPIC);
    SetWindowExtEx(target.DC(), 1, 1, nullptr);
    SetViewportExtEx(target.DC(), 3, 2, nullptr);
    LoadPNG png;
    png.PicBox(target.DC());
    png.SetDstXY(4, 5);
    Open(png, file);
    Pixels expected = before;
    const std::uint32_t colours[2][2] = {{0xFF0000, 0x00FF00}, {0x0000FF, 0x090807}};
    for (std::int32_t y = 0; y < 4; ++y) {
        for (std::int32_t x = 0; x < 6; ++x) expected.Set(12 + x, 10 + y, colours[y / 2][x / 3]);
    }
    CHECK(Difference(target.Read(), expected) == "same");
}

TEST_CASE("a context of two colours gets the picture in its two colours") {
    // What is white stays white, all else turns black.
    const Bytes rows = {0, 255, 255, 255, 254, 255, 255, 0, 0, 0, 90, 80, 200};
    const Bytes file = PngBytes().Header({.Width = 4, .Height = 1, .ColourType = 2}).StoredImage(rows).End();
    const MemoryDC memory(CreateCompatibleDC(nullptr));
    const OwnedBitmap bitmap(CreateBitmap(8, 1, 1, 1, nullptr));
    const Selection selected = Select(memory.Get(), bitmap.Get());
    PatBlt(memory.Get(), 0, 0, 8, 1, BLACKNESS);
    LoadPNG png;
    png.PicBox(memory.Get());
    Open(png, file);
    std::string drawn;
    for (int x = 0; x < 4; ++x) drawn += GetPixel(memory.Get(), x, 0) == 0xFFFFFF ? 'w' : 'b';
    CHECK(drawn == "wbbb");
}

TEST_CASE("without a background context an icon is mixed with black, whatever SetOwnBkgndColor was given") {
    const AlphaPicture picture;
    const Bytes file = picture.File();
    const Pixels before = Patterned(Extent, Extent, 2);
    TestSurface target(before);
    LoadPNG png;
    png.Style(3);
    png.PicBox(target.DC());
    png.SetOwnBkgndColor(True, 0x00FF00);
    png.SetAlpha(True);
    Open(png, file);
    Pixels expected = before;
    PaintPlainly(expected, picture, 0, 0, 3, Pixels(Extent, Extent, 0), 0, 0);
    CHECK(Difference(target.Read(), expected) == "same");
}

TEST_CASE("an RGB + alpha image without applied alpha is drawn opaque, its colours unchanged") {
    for (const Boolean alpha : {False, Boolean{1}}) { // only exactly True applies it
        const Bytes file = PngBytes()
                               .Header({.Width = 2, .ColourType = 6})
                               .StoredImage({0, 10, 20, 30, 0, 40, 50, 60, 99})
                               .End();
        TestSurface surface(Patterned(Extent, Extent, 5));
        LoadPNG png;
        png.PicBox(surface.DC());
        png.SetAlpha(alpha);
        Open(png, file);
        CHECK(Difference(surface.Read().Cut(0, 0, 2, 1), Row({0x0A141E, 0x28323C})) == "same");
        CHECK(png.HaveAlpha() == True);
    }
}

TEST_CASE("every output depth is drawn upright and in its own colours") {
    const Bytes palette = {255, 0, 0, 0, 255, 0};
    const auto twoRows = [](std::uint8_t depth, std::uint8_t type) {
        return HeaderFields{.Width = 2, .Height = 2, .BitDepth = depth, .ColourType = type};
    };
    Pixels expected(2, 2);
    expected.Values = {0xFF0000, 0x00FF00, 0x00FF00, 0x00FF00};
    const auto indexed = [&](std::uint8_t depth, const Bytes& rows) {
        return PngBytes().Header(twoRows(depth, 3)).Chunk("PLTE", palette).StoredImage(rows).End().All();
    };
    CHECK(Difference(DrawnOpaque(indexed(1, {0, 0x40, 0, 0xC0}), 2, 2), expected) == "same");
    CHECK(Difference(DrawnOpaque(indexed(2, {0, 0x10, 0, 0x50}), 2, 2), expected) == "same");
    CHECK(Difference(DrawnOpaque(indexed(4, {0, 0x01, 0, 0x11}), 2, 2), expected) == "same");
    CHECK(Difference(DrawnOpaque(indexed(8, {0, 0, 1, 0, 1, 1}), 2, 2), expected) == "same");
    const Bytes rgb = PngBytes()
                          .Header(twoRows(8, 2))
                          .StoredImage({0, 255, 0, 0, 0, 255, 0, 0, 0, 255, 0, 0, 255, 0})
                          .End();
    CHECK(Difference(DrawnOpaque(rgb, 2, 2), expected) == "same");
}

TEST_CASE("a 2-colour palette keeps its colours, with a 3-entry PLTE it is drawn black and white") {
    const auto drawn = [](const Bytes& palette) {
        const HeaderFields fields = {.Width = 2, .BitDepth = 1, .ColourType = 3};
        return DrawnOpaque(PngBytes().Header(fields).Chunk("PLTE", palette).StoredImage({0, 0x40}).End(), 2,
                           1);
    };
    CHECK(Difference(drawn({1, 2, 3, 4, 5, 6}), Row({0x010203, 0x040506})) == "same");
    CHECK(Difference(drawn({1, 2, 3, 4, 5, 6, 7, 8, 9}), Row({0x000000, 0xFFFFFF})) == "same");
}

TEST_CASE("a 16-bit grey sample 0x12FF draws as grey level 0x12") {
    const Bytes file =
        PngBytes().Header({.BitDepth = 16, .ColourType = 0}).StoredImage({0, 0x12, 0xFF}).End();
    CHECK(Difference(DrawnOpaque(file, 1, 1), Row({0x121212})) == "same");
}

TEST_CASE("tRNS is applied when asked for, over what lies beneath") {
    const Bytes file = PngBytes()
                           .Header({.Width = 3, .ColourType = 3})
                           .Chunk("PLTE", {200, 100, 50, 10, 20, 30, 1, 2, 3})
                           .Chunk("tRNS", {0, 128})
                           .StoredImage({0, 0, 1, 2})
                           .End();
    const Pixels before = Patterned(Extent, Extent, 9);
    TestSurface surface(before);
    LoadPNG png;
    png.Style(3);
    png.PicBox(surface.DC());
    png.BackgroundHdc(surface.DC());
    png.SetTrans(True);
    Open(png, file);
    CHECK(png.HaveTransparence() == True);
    const Pixels expected = Row({before.At(0, 0), MixPixel({10, 20, 30, 128}, 3, before.At(1, 0)), 0x010203});
    CHECK(Difference(surface.Read().Cut(0, 0, 3, 1), expected) == "same");
    CHECK(Difference(DrawnOpaque(file, 3, 1), Row({0xC86432, 0x0A141E, 0x010203})) == "same");
}

TEST_CASE("what was read is there to be asked for") {
    const Bytes file = PngBytes()
                           .Header({.Width = 2, .Height = 1, .ColourType = 2})
                           .Chunk("tEXt", BytesOf("hello"))
                           .Chunk("gAMA", BigEndian32(45455))
                           .Chunk("tIME", {0x07, 0xD9, 3, 7, 14, 5, 9})
                           .Chunk("bKGD", {0, 1, 0, 2, 0, 3})
                           .StoredImage({0, 1, 2, 3, 4, 5, 6})
                           .End();
    LoadPNG png;
    CHECK(png.ErrorNumber() == 0);
    Open(png, file);
    CHECK(png.width() == 2);
    CHECK(png.height() == 1);
    CHECK(png.Bitdepht() == 8);
    CHECK(png.ColorType() == 2);
    CHECK(png.Compression() == 0);
    CHECK(png.Filter() == 0);
    CHECK(png.Interlacing() == 0);
    CHECK(png.HaveAlpha() == False);
    CHECK(png.HaveTransparence() == False);
    CHECK(png.HasBKGDChunk() == True);
    CHECK(png.BkgdColor() == 0x030201);
    CHECK(png.Text() == std::u16string(u"hello") + u'\0');
    CHECK(png.zText().empty());
    CHECK(png.ModiTime() == u"07.03.2009 14:05:09");
    CHECK(png.gama() == 0.45455);
}

TEST_CASE("a stored gamma is a signed number of 32 bits") {
    LoadPNG png;
    Open(png, PngBytes().Header({}).Chunk("gAMA", {0xFF, 0xFF, 0xFF, 0xFF}).End());
    CHECK(png.gama() == -0.00001);
}

TEST_CASE("opening a file that is not there takes back the flags of tRNS and bKGD and nothing else") {
    // The reset is the first step of an open, the file the second.
    const Bytes file = PngBytes()
                           .Header({.Width = 2, .ColourType = 6, .Filter = 7})
                           .Chunk("tEXt", BytesOf("hello"))
                           .Chunk("zTXt", BytesOf("key"))
                           .Chunk("gAMA", BigEndian32(45455))
                           .Chunk("tIME", {0x07, 0xD9, 3, 7, 14, 5, 9})
                           .Chunk("bKGD", {0, 1, 0, 2, 0, 3})
                           .Chunk("tRNS", {0})
                           .StoredImage({0, 1, 2, 3, 4, 5, 6, 7, 8})
                           .End();
    LoadPNG png;
    Open(png, BytesOf("GIF89a no PNG"));
    Open(png, file);
    CHECK(png.HasBKGDChunk() == True);
    CHECK(png.HaveTransparence() == True);
    CHECK(NumberRaisedBy([&] { png.OpenPNG(u"no such file.png"); }) == 53);
    CHECK(png.HasBKGDChunk() == False);
    CHECK(png.HaveTransparence() == False);
    CHECK(png.width() == 2);
    CHECK(png.height() == 1);
    CHECK(png.Bitdepht() == 8);
    CHECK(png.ColorType() == 6);
    CHECK(png.Filter() == 7);
    CHECK(png.ErrorNumber() == 1);
    CHECK(png.HaveAlpha() == True);
    CHECK(png.BkgdColor() == 0x030201);
    CHECK(png.Text() == std::u16string(u"hello") + u'\0');
    CHECK(png.zText() == std::u16string(u"key") + u'\0' + u'\0');
    CHECK(png.ModiTime() == u"07.03.2009 14:05:09");
    CHECK(png.gama() == 0.45455);
}

TEST_CASE("bad files draw nothing and leave no bitmap") {
    const Pixels before = Patterned(Extent, Extent, 4);
    TestSurface surface(before);
    const PngBytes withoutImage = PngBytes().Header({}).End();
    const PngBytes withoutWidth = PngBytes().Header({.Width = 0}).StoredImage({0, 1, 2, 3}).End();
    const PngBytes cut = PngBytes().Header({}).FalseChunk("IDAT", 500, {1, 2, 3});
    for (const Bytes& bytes :
         {Bytes{}, BytesOf("GIF89a no PNG"), withoutImage.All(), withoutWidth.All(), cut.All()}) {
        const TemporaryFile file("load_png_bad.png", bytes);
        CHECK(!DrawPngFile(file.Path(), surface.DC(), surface.Bitmap(), 1, 1, 3, 0, surface.DC()));
        CHECK(file.Remove());
    }
    CHECK(Difference(surface.Read(), before) == "same");
}

TEST_CASE("files that are not there and data that breaks raise, and the next drawing works") {
    const Pixels before = Patterned(Extent, Extent, 4);
    TestSurface surface(before);
    const auto draw = [&](const std::u16string& path) {
        return NumberRaisedBy(
            [&] { DrawPngFile(path, surface.DC(), surface.Bitmap(), 0, 0, 3, 0, surface.DC()); });
    };
    const TemporaryFile shortData("load_png_short.png",
                                  PngBytes().Header({.Height = 2}).StoredImage({0, 1, 2, 3}).End());
    const TemporaryFile sound("load_png_sound.png", PngBytes().Header({}).StoredImage({0, 1, 2, 3}).End());
    CHECK(draw(u"no such file.png") == 53);
    CHECK(draw(u"no\\such\\folder\\file.png") == 76);
    CHECK(draw(shortData.Path()) == 9);
    CHECK(Difference(surface.Read(), before) == "same");
    CHECK(draw(sound.Path()) == 0);
    CHECK(surface.Read().At(0, 0) == 0x010203);
}

TEST_CASE("memory without an address or with a negative length raises, and none is no PNG") {
    LoadPNG png;
    CHECK(NumberRaisedBy([&] { png.OpenPNGfromRes(0, 10); }) == 5);
    CHECK(NumberRaisedBy([&] { png.OpenPNGfromRes(4096, -1); }) == 9);
    CHECK(png.OpenPNGfromRes(0, 0) == 0);
    CHECK(png.ErrorNumber() == 1);
}

TEST_CASE("contexts that are none are no crash") {
    const AlphaPicture picture;
    const TemporaryFile file("load_png_null.png", picture.File());
    DrawPngFile(file.Path(), nullptr, nullptr, 0, 0, 3, 0, nullptr);
    const HDC noContext = reinterpret_cast<HDC>(std::intptr_t{0x1234567});
    DrawPngFile(file.Path(), noContext, nullptr, 0, 0, 3, 0, noContext);
}

TEST_CASE("the bitmap left behind is the picture that was drawn") {
    const AlphaPicture picture;
    const TemporaryFile file("load_png_left.png", picture.File());
    TestSurface surface(Patterned(Extent, Extent, 4));
    const OwnedBitmap drawn =
        DrawPngFile(file.Path(), surface.DC(), surface.Bitmap(), 5, 5, 3, 0, surface.DC());

    TestSurface copy(13, 9);
    const MemoryDC memory(CreateCompatibleDC(copy.DC()));
    {
        const Selection selected = Select(memory.Get(), drawn.Get());
        BitBlt(copy.DC(), 0, 0, 13, 9, memory.Get(), 0, 0, SRCCOPY);
    }
    CHECK(Difference(copy.Read(), surface.Read().Cut(5, 5, 13, 9)) == "same");
}

TEST_CASE("the bitmap left behind can be taken once, and the next picture replaces one that nobody took") {
    const Bytes small = AlphaPicture{.Width = 3, .Height = 2}.File();
    const Bytes large = AlphaPicture().File();
    TestSurface surface(Patterned(Extent, Extent, 4));
    LoadPNG png;
    png.PicBox(surface.DC());
    CHECK(!png.TakeBitmap());
    Open(png, small);
    Open(png, large);
    const OwnedBitmap taken = png.TakeBitmap();
    BITMAP bitmap = {};
    GetObjectW(taken.Get(), sizeof bitmap, &bitmap);
    CHECK(bitmap.bmWidth == 13);
    CHECK(!png.TakeBitmap());
}

TEST_CASE("device contexts are left as they were found") {
    const AlphaPicture picture;
    const TemporaryFile file("load_png_dc.png", picture.File());
    TestSurface surface(Patterned(Extent, Extent, 4));
    const HGDIOBJ selected = GetCurrentObject(surface.DC(), OBJ_BITMAP);
    const COLORREF text = GetTextColor(surface.DC());
    DrawPngFile(file.Path(), surface.DC(), surface.Bitmap(), 5, 5, 3, 0, surface.DC());
    CHECK(GetCurrentObject(surface.DC(), OBJ_BITMAP) == selected);
    CHECK(GetTextColor(surface.DC()) == text);
}

TEST_CASE("drawing 100,000 icons leaves the GDI object count where it was") {
    const AlphaPicture picture;
    const Bytes png = picture.File();
    TestSurface surface(Patterned(Extent, Extent, 4));
    const auto draw = [&] {
        LoadPNG icon;
        icon.Style(3);
        icon.PicBox(surface.DC());
        icon.BackgroundHdc(surface.DC());
        icon.SetAlpha(True);
        Open(icon, png);
    };
    const auto before = test::GdiObjectCount(); // the first icon leaves nothing either
    for (int i = 0; i < 100'000; ++i) draw();
    CHECK(test::GdiObjectCount() == before);
}

} // namespace vantik

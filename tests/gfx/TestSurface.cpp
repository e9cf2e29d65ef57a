#include "tests/gfx/TestSurface.h"

#include <algorithm>
#include <random>

namespace vantik::test {

namespace {

BITMAPINFO TopDown(std::int32_t width, std::int32_t height) {
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    return info;
}

std::size_t Index(const Pixels& pixels, std::int32_t x, std::int32_t y) {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(pixels.Width) + static_cast<std::size_t>(x);
}

std::string Hex(std::uint32_t colour) {
    char text[9];
    wsprintfA(text, "%06X", colour);
    return text;
}

} // namespace

Pixels::Pixels(std::int32_t width, std::int32_t height, std::uint32_t colour)
    : Width(width),
      Height(height),
      Values(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), colour) {}

std::uint32_t Pixels::At(std::int32_t x, std::int32_t y) const {
    return Has(x, y) ? Values[Index(*this, x, y)] : 0;
}

void Pixels::Set(std::int32_t x, std::int32_t y, std::uint32_t colour) {
    if (Has(x, y)) Values[Index(*this, x, y)] = colour;
}

Pixels Pixels::Cut(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height) const {
    Pixels part(std::max(width, 0), std::max(height, 0));
    for (std::int32_t j = 0; j < part.Height; ++j)
        for (std::int32_t i = 0; i < part.Width; ++i) part.Set(i, j, At(x + i, y + j));
    return part;
}

std::string Difference(const Pixels& actual, const Pixels& expected) {
    if (actual.Width != expected.Width || actual.Height != expected.Height) return "another size";
    if (actual == expected) return "same";
    std::string first;
    int count = 0;
    for (std::int32_t y = 0; y < actual.Height; ++y) {
        for (std::int32_t x = 0; x < actual.Width; ++x) {
            if (actual.At(x, y) == expected.At(x, y)) continue;
            if (count++ == 0)
                first = "at " + std::to_string(x) + "," + std::to_string(y) + ": " + Hex(actual.At(x, y)) +
                        " for " + Hex(expected.At(x, y));
        }
    }
    return first + ", " + std::to_string(count) + " in all";
}

Pixels Patterned(std::int32_t width, std::int32_t height, std::uint32_t seed) {
    std::mt19937 random(seed);
    Pixels pixels(width, height);
    std::uint32_t previous = 0;
    for (std::uint32_t& value : pixels.Values) {
        do value = random() & 0xFFFFFF;
        while (value == 0xFF00FF || value == previous);
        previous = value;
    }
    return pixels;
}

TestSurface::TestSurface(std::int32_t width, std::int32_t height)
    : width_(width), height_(height), dc_(CreateCompatibleDC(nullptr)), selection_(nullptr, nullptr) {
    // A surface without pixels stays a bare context.
    if (width < 1 || height < 1) return;
    const BITMAPINFO info = TopDown(width, height);
    void* bits = nullptr;
    bitmap_ = OwnedBitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    bits_ = static_cast<std::uint32_t*>(bits);
    selection_ = Select(dc_.Get(), bitmap_.Get());
}

TestSurface::TestSurface(const Pixels& content) : TestSurface(content.Width, content.Height) {
    Write(content);
}

Pixels TestSurface::Read() const { return bits_ ? ReadPart({0, 0, width_, height_}) : Pixels(); }

Pixels TestSurface::ReadPart(const RECT& area) const {
    GdiFlush();
    Pixels pixels(area.right - area.left, area.bottom - area.top);
    RECT there;
    const RECT surface = {0, 0, width_, height_};
    if (!bits_ || !IntersectRect(&there, &area, &surface)) return pixels;
    for (LONG y = there.top; y < there.bottom; ++y) {
        const std::uint32_t* const row = bits_ + std::ptrdiff_t{y} * width_;
        std::transform(
            row + there.left, row + there.right,
            pixels.Values.begin() + std::ptrdiff_t{y - area.top} * pixels.Width + (there.left - area.left),
            [](std::uint32_t value) { return value & 0xFFFFFF; });
    }
    return pixels;
}

void TestSurface::Write(const Pixels& content) {
    GdiFlush();
    if (bits_) std::copy(content.Values.begin(), content.Values.end(), bits_);
}

void TestSurface::Clear(std::uint32_t colour) {
    GdiFlush();
    if (bits_)
        std::fill_n(bits_, static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_), colour);
}

ComPtr<IPictureDisp> PictureOf(const Pixels& content) {
    const BITMAPINFO info = TopDown(content.Width, content.Height);
    const ScreenDC screen = GetScreenDC();
    PICTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap =
        CreateDIBitmap(screen.Get(), &info.bmiHeader, CBM_INIT, content.Values.data(), &info, DIB_RGB_COLORS);
    ComPtr<IPictureDisp> picture;
    OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE, picture.PutVoid());
    return picture;
}

} // namespace vantik::test

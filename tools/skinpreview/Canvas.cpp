#include "tools/skinpreview/Canvas.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <type_traits>

namespace vantik {

namespace {

constexpr int LetterHeight = 13;
constexpr std::uint32_t Ink = 0x202020, Black = 0x000000, White = 0xFFFFFF;

struct FontDeleter {
    void operator()(HFONT font) const noexcept { DeleteObject(font); }
};
using OwnedFont = std::unique_ptr<std::remove_pointer_t<HFONT>, FontDeleter>;

OwnedFont MakeFont(Lettering lettering) {
    const int weight = lettering == Lettering::Bold ? FW_BOLD : FW_NORMAL;
    return OwnedFont(CreateFontW(-LetterHeight, 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                                 OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY,
                                 DEFAULT_PITCH | FF_SWISS, L"Segoe UI"));
}

class SelectedFont {
public:
    SelectedFont(HDC dc, Lettering lettering)
        : dc_(dc), font_(MakeFont(lettering)), old_(SelectObject(dc, font_.get())) {}
    ~SelectedFont() { SelectObject(dc_, old_); }
    SelectedFont(const SelectedFont&) = delete;
    SelectedFont& operator=(const SelectedFont&) = delete;

private:
    HDC dc_;
    OwnedFont font_;
    HGDIOBJ old_;
};

COLORREF ToSystem(std::uint32_t colour) noexcept {
    return RGB(colour >> 16 & 0xFF, colour >> 8 & 0xFF, colour & 0xFF);
}

} // namespace

SIZE ExtentOf(const std::wstring& text, Lettering lettering) {
    const PixelCanvas scratch(1, 1);
    const SelectedFont font(scratch.DC(), lettering);
    SIZE extent = {};
    GetTextExtentPoint32W(scratch.DC(), text.c_str(), static_cast<int>(text.size()), &extent);
    return extent;
}

Canvas::Canvas(int width, int height, std::uint32_t colour) : canvas_(width, height) {
    Fill({0, 0, width, height}, colour);
}

void Canvas::Set(int x, int y, std::uint32_t colour) {
    if (x < 0 || y < 0 || x >= canvas_.Width() || y >= canvas_.Height()) return;
    canvas_.Pixels()[y * canvas_.Width() + x] = colour;
}

void Canvas::Fill(const RECT& place, std::uint32_t colour) {
    for (int y = place.top; y < place.bottom; ++y)
        for (int x = place.left; x < place.right; ++x) Set(x, y, colour);
}

void Canvas::Put(const Snapshot& picture, int left, int top, int zoom) {
    for (int y = 0; y < picture.Height * zoom; ++y)
        for (int x = 0; x < picture.Width * zoom; ++x) Set(left + x, top + y, picture.At(x / zoom, y / zoom));
}

void Canvas::Write(const std::wstring& text, int left, int top, Lettering lettering) {
    const SelectedFont font(canvas_.DC(), lettering);
    SetBkMode(canvas_.DC(), TRANSPARENT);
    SetTextColor(canvas_.DC(), ToSystem(Ink));
    TextOutW(canvas_.DC(), left, top, text.c_str(), static_cast<int>(text.size()));
}

void Canvas::Line(POINT from, POINT to, std::uint32_t colour) {
    const int steps = static_cast<int>(std::max({std::abs(to.x - from.x), std::abs(to.y - from.y), 1L}));
    for (int i = 0; i <= steps; ++i)
        Set(from.x + (to.x - from.x) * i / steps, from.y + (to.y - from.y) * i / steps, colour);
}

void Canvas::Outline(const RECT& place) {
    constexpr int Dash = 4;
    const auto set = [&](int x, int y) { Set(x, y, (x + y) / Dash % 2 ? Black : White); };
    for (int x = place.left - 1; x <= place.right; ++x) set(x, place.top - 1), set(x, place.bottom);
    for (int y = place.top - 1; y <= place.bottom; ++y) set(place.left - 1, y), set(place.right, y);
}

} // namespace vantik

#include "ole/accessible/FocusCue.h"

#include <array>
#include <cstdlib>
#include <utility>
#include <vector>

#include "gfx/RowDrawing.h"
#include "ole/control/HighContrast.h"
#include "render/BarGeometry.h"
#include "render/FrameGeometry.h"

namespace vantik {

namespace {

constexpr LONG FromEdge = 3;  // within the edges of most skins' bars
constexpr LONG LeastSide = 5; // of a rectangle in which something can still be seen

using Edges = std::array<RECT, 4>;

Edges EdgesOf(const RECT& r, LONG thickness) noexcept {
    return {RECT{r.left, r.top, r.right, r.top + thickness},
            RECT{r.left, r.bottom - thickness, r.right, r.bottom},
            RECT{r.left, r.top, r.left + thickness, r.bottom},
            RECT{r.right - thickness, r.top, r.right, r.bottom}};
}

RECT Inside(const LayoutRect& area) noexcept {
    RECT place = {area.Left, area.Top, area.Right, area.Bottom};
    for (LONG inset = FromEdge; inset > 0; --inset) {
        const RECT smaller = {place.left + inset, place.top + inset, place.right - inset,
                              place.bottom - inset};
        if (smaller.right - smaller.left >= LeastSide && smaller.bottom - smaller.top >= LeastSide)
            return smaller;
    }
    return place;
}

// What later bars cover of it is not the active one's.
LayoutRect FocusedArea(const ControlState& state) {
    const std::int16_t active = state.Properties.ActiveTab;
    if (!state.HasTab(active) || !IsVisibleSlot(state, SlotOf(state, active)))
        return state.Layout.BarStripRect;
    const std::int32_t slot = SlotOf(state, active);
    return Intersection(BarRect(state, slot), UncoveredRect(state, slot));
}

// Black and white by turns: on a ground of any colour one of them shows.
void DrawDots(HDC dc, const RECT& edge) {
    const LONG width = edge.right - edge.left, height = edge.bottom - edge.top;
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width * height));
    for (std::size_t i = 0; i < pixels.size(); ++i) // one pixel thick
        pixels[i] = (static_cast<std::size_t>(edge.left + edge.top) + i) % 2 ? 0xFFFFFF : 0;
    const BITMAPINFO format = FormatOfRows({width, height});
    SetDIBitsToDevice(dc, edge.left, edge.top, static_cast<DWORD>(width), static_cast<DWORD>(height), 0, 0, 0,
                      static_cast<UINT>(height), pixels.data(), &format, DIB_RGB_COLORS);
}

int Brightness(std::uint32_t red, std::uint32_t green, std::uint32_t blue) noexcept {
    return static_cast<int>(red * 299 + green * 587 + blue * 114);
}

int BrightnessOf(int systemColour) noexcept {
    const COLORREF colour = GetSysColor(systemColour);
    return Brightness(GetRValue(colour), GetGValue(colour), GetBValue(colour));
}

int BrightnessOf(const Surface& surface, const RECT& edge) {
    std::vector<std::uint32_t> pixels(
        static_cast<std::size_t>((edge.right - edge.left) * (edge.bottom - edge.top)));
    if (pixels.empty() || !surface.Read(edge, pixels)) return 0;
    std::int64_t sum = 0;
    for (const std::uint32_t pixel : pixels)
        sum += Brightness(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF);
    return static_cast<int>(sum / static_cast<std::int64_t>(pixels.size()));
}

// Of the user's two colours the one that the bar, which may have any colour, sets off more.
int ColourOver(int ground) noexcept {
    const auto distance = [&](int colour) { return std::abs(BrightnessOf(colour) - ground); };
    return distance(COLOR_WINDOWTEXT) >= distance(COLOR_WINDOW) ? COLOR_WINDOWTEXT : COLOR_WINDOW;
}

} // namespace

void FocusCue::Focused(bool gained) noexcept {
    focused_ = gained;
    Update();
}

// The system's own procedure knows whether the user sees cues, which no host has to be asked.
bool FocusCue::IsWanted() const noexcept {
    const HWND window = control_.Place.Window();
    if (!window) return false;
    if (!control_.Ambient.UserMode()) return control_.Engine.State().HasTab(control_.Engine.ActiveTab());
    return focused_ && !(DefWindowProcW(window, WM_QUERYUISTATE, 0, 0) & UISF_HIDEFOCUS);
}

RECT FocusCue::Place() const noexcept {
    if (!IsWanted()) return {};
    try {
        const LayoutRect area = FocusedArea(control_.Engine.State());
        return IsEmpty(area) ? RECT{} : Inside(area);
    } catch (...) {
        return {}; // painting says what is wrong
    }
}

void FocusCue::Update() noexcept {
    const RECT place = Place();
    if (EqualRect(&place, &shown_)) return;
    for (const RECT* area : {&place, &std::as_const(shown_)})
        if (!IsRectEmpty(area)) InvalidateRect(control_.Place.Window(), area, FALSE);
    shown_ = place;
}

void FocusCue::Draw(HDC dc) const {
    if (IsRectEmpty(&shown_)) return;
    if (!IsHighContrastOn()) {
        for (const RECT& edge : EdgesOf(shown_, 1)) DrawDots(dc, edge);
        return;
    }
    const Edges edges = EdgesOf(shown_, 2);
    const HBRUSH brush = GetSysColorBrush(ColourOver(BrightnessOf(control_.Surface, edges[0])));
    for (const RECT& edge : edges) FillRect(dc, &edge, brush);
}

} // namespace vantik

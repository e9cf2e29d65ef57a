#include "ole/host/ChildWindow.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/Rounding.h"
#include "base/Text.h"

namespace vantik {

namespace {

constexpr wchar_t NameProperty[] = L"Name";
constexpr wchar_t LeftProperty[] = L"VantikFrameTab.Left";

// Windows stand within 16 bits.
constexpr double FarthestPixel = 30000;

// Twips as a window property keeps them, where 0 means that there is none: only the least number of all is lost.
HANDLE AsProperty(std::int32_t twips) noexcept {
    return reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(twips ^ std::numeric_limits<std::int32_t>::min()));
}
std::int32_t FromProperty(HANDLE property) noexcept {
    return static_cast<std::int32_t>(reinterpret_cast<LONG_PTR>(property)) ^
           std::numeric_limits<std::int32_t>::min();
}

LONG ToPixel(double twips, double twipsPerPixel) noexcept {
    return static_cast<LONG>(
        std::nearbyint(std::clamp(twips / twipsPerPixel, -FarthestPixel, FarthestPixel)));
}

} // namespace

POINT ChildWindow::Position() const noexcept {
    RECT area = {};
    GetWindowRect(window_, &area);
    POINT corner = {area.left, area.top};
    MapWindowPoints(nullptr, GetParent(window_), &corner, 1);
    return corner;
}

// The window may have been moved by others since: then the kept value says nothing any more.
double ChildWindow::Left() {
    const LONG pixel = Position().x;
    const double perPixel = screen_.TwipsPerPixelX();
    if (const HANDLE kept = GetPropW(window_, LeftProperty)) {
        const std::int32_t twips = FromProperty(kept);
        if (ToPixel(twips, perPixel) == pixel) return twips;
    }
    return pixel * perPixel;
}

void ChildWindow::Left(double left) {
    const std::int32_t twips = RoundHalfToEven(left);
    const POINT corner = Position();
    const LONG pixel = ToPixel(twips, screen_.TwipsPerPixelX());
    SetPropW(window_, LeftProperty, AsProperty(twips));
    if (pixel != corner.x)
        SetWindowPos(window_, nullptr, pixel, corner.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

std::u16string ChildWindow::Name() {
    const auto atom = static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(GetPropW(window_, NameProperty)));
    wchar_t name[256];
    const UINT length = atom ? GlobalGetAtomNameW(atom, name, 256) : 0;
    return length ? FromWide({name, length}) : DecimalText(GetDlgCtrlID(window_));
}

void ChildWindow::Visible(Boolean visible) { ShowWindow(window_, visible ? SW_SHOWNA : SW_HIDE); }

} // namespace vantik

#include "PageColour.h"

#include "SurfaceColour.h"

namespace vantik {

namespace {

// As the eye weighs the three colours.
bool IsDark(COLORREF colour) noexcept {
    return GetRValue(colour) * 299 + GetGValue(colour) * 587 + GetBValue(colour) * 114 < 128000;
}

} // namespace

void PageColour::TakeFrom(HostForm& form) {
    const auto colour = SurfaceColour(form.ControlObject(), form.ControlWindow());
    if (!colour || *colour == colour_) return;
    *this = PageColour(*colour);
    RedrawWindow(form.Window().Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

LRESULT PageColour::Answer(HDC dc) const {
    SetBkColor(dc, colour_);
    SetTextColor(dc, IsDark(colour_) ? RGB(255, 255, 255) : GetSysColor(COLOR_BTNTEXT));
    return reinterpret_cast<LRESULT>(brush_.Get());
}

void PageColour::Fill(HWND window, HDC dc) const {
    RECT client = {};
    GetClientRect(window, &client);
    FillRect(dc, &client, brush_.Get());
}

} // namespace vantik

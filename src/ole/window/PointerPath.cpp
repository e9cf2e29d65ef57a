#include "ole/window/PointerPath.h"

#include "render/BarGeometry.h"

namespace vantik {

namespace {

bool IsInside(PixelPoint pixel, const LayoutRect& rect) noexcept {
    return rect.Left <= pixel.X && pixel.X < rect.Right && rect.Top <= pixel.Y && pixel.Y < rect.Bottom;
}

bool HitsInclusive(PixelPoint pixel, const LayoutRect& rect) noexcept {
    return PointInRect(float(pixel.X), float(pixel.Y), rect);
}

std::int32_t SlotAt(const ControlState& control, PixelPoint pixel) {
    const LayoutRect& strip = control.Layout.BarStripRect;
    return BarSlotAt(float(pixel.X - strip.Left), float(pixel.Y - strip.Top), control);
}

bool IsOnCloseButton(const ControlState& control, PixelPoint pixel) {
    return HitsInclusive(pixel, CloseButtonRect(control, SlotAt(control, pixel)));
}

} // namespace

std::optional<std::int16_t> TabAt(const ControlState& control, PixelPoint pixel) {
    if (!IsInside(pixel, control.Layout.BarStripRect)) return std::nullopt;
    const std::int32_t tab = Checked(control.Layout.FirstVisibleTab) + SlotAt(control, pixel);
    if (tab < 0 || tab >= control.Properties.TabCount) return std::nullopt;
    return Narrow<std::int16_t>(tab);
}

PixelPoint OnBarOrOutside(const ControlState& control, PixelPoint pixel) {
    const LayoutRect& strip = control.Layout.BarStripRect;
    if (!HitsInclusive(pixel, strip) || TabAt(control, pixel)) return pixel;
    return {Checked(strip.Right) + 1, pixel.Y};
}

bool JumpsOntoCloseButton(const ControlState& control, PixelPoint pixel) {
    const auto tab = TabAt(control, pixel);
    if (!tab || *tab == control.HoverCloseTab || !IsOnCloseButton(control, pixel)) return false;
    return *tab != control.HoverTab || control.HoverCloseTab != -1;
}

// A rectangle that covers the four corners of another covers all of it.
std::optional<PixelPoint> BesideCloseButton(const ControlState& control, PixelPoint pixel) {
    const LayoutRect bar = SlotRect(control, SlotAt(control, pixel));
    const std::int32_t right = Checked(bar.Right) - 1, bottom = Checked(bar.Bottom) - 1;
    for (const PixelPoint corner :
         {PixelPoint{bar.Left, bar.Top}, {right, bar.Top}, {bar.Left, bottom}, {right, bottom}})
        if (TabAt(control, corner) == TabAt(control, pixel) && !IsOnCloseButton(control, corner))
            return corner;
    return std::nullopt;
}

} // namespace vantik

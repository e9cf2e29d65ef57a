#include "render/DecorationGeometry.h"

#include <algorithm>

#include "render/BarGeometry.h"

namespace vantik {

namespace {

constexpr std::int32_t GapBesideStrip = 8;
constexpr std::int32_t GapBesideRow = 2; // where the last bar reaches far behind the strip
constexpr std::int32_t GapBeforeMenu = 2;

struct Extent {
    std::int32_t Width = 0, Height = 0;

    std::int32_t Along(bool horizontal) const { return horizontal ? Width : Height; }
};

Extent ExtentOf(const SkinIcon* icon) { return icon ? Extent{icon->Width, icon->Height} : Extent{}; }

LayoutRect Inclusive(Checked x, Checked y, Extent extent) {
    return LayoutRect::FromEdges(x, y, x + extent.Width - 1, y + extent.Height - 1);
}

// The offset that puts something in the middle of a wider or a narrower room.
Checked Centred(Checked room, std::int32_t extent) { return (room - extent) / 2; }

Checked WidestTrailingEnd(const SkinRects& rects) {
    return std::max({rects[RightPic0].Width, rects[RightPic0 + 1].Width, rects[RightPic0 + 2].Width});
}

// Where bars of less than the strip's thickness are away from its far edge, their icons follow them.
Checked OffsetOfFill(const ControlState& control, std::int32_t fillHeight) {
    const LayoutRect& strip = control.Layout.BarStripRect;
    switch (control.Properties.TabPos) {
    case Windowtop: return Checked(strip.Height) - fillHeight;
    case WindowLeft: return Checked(strip.Width) - fillHeight;
    default: return 0;
    }
}

// The strip and the control in one direction of the surface.
struct Axis {
    Checked Near, Far;  // the strip's edges
    Checked End;        // of the control, which begins at 0
    std::int32_t Shift; // of the buttons, the host's own
};

Axis AxisOf(const ControlState& control, bool horizontal) {
    const LayoutRect &strip = control.Layout.BarStripRect, &all = control.Layout.ControlRect;
    const PropertyValues& p = control.Properties;
    return horizontal ? Axis{strip.Left, strip.Right, all.Right, p.NavBtnXjust}
                      : Axis{strip.Top, strip.Bottom, all.Bottom, p.NavBtnYjust};
}

// Nothing but the host's own shift takes a button out of the control.
Checked ShiftedInside(const Axis& axis, std::int32_t position, Checked length) {
    const std::int32_t last = std::max<std::int32_t>(axis.End - length, 0);
    return std::clamp<std::int32_t>(Checked(position) + axis.Shift, std::min(0, axis.Shift),
                                    Checked(last) + std::max(0, axis.Shift));
}

// Where the buttons begin along the strip, and the gap before the menu button.
struct ButtonRun {
    Checked Start;
    std::int32_t GapBeforeMenu;
};

// The gaps are as wide as there is room for them between the strip and the control's edge; as much as the last bar hides
// behind the strip comes first. Where even buttons without gaps have no room on their side they stand on the other one,
// if that has.
ButtonRun RunOfButtons(const Axis& axis, bool beforeStrip, Checked length, std::int32_t overhang) {
    const std::int32_t before = axis.Near - length, behind = axis.End - axis.Far - length;
    if ((beforeStrip ? before : behind) < 0 && (beforeStrip ? behind : before) >= 0)
        beforeStrip = !beforeStrip;
    const std::int32_t room = beforeStrip ? Checked(before) + axis.Shift : Checked(behind) - axis.Shift;
    const std::int32_t hidden = beforeStrip ? 0 : std::max(overhang - std::max(axis.Shift, 0), 0);
    const std::int32_t beforeMenu = std::clamp<std::int32_t>(Checked(room) - hidden, 0, GapBeforeMenu);
    const std::int32_t besideStrip = std::clamp<std::int32_t>(
        Checked(room) - beforeMenu, 0, std::max(GapBesideStrip, hidden + GapBesideRow));
    const Checked whole = length + beforeMenu;
    const Checked start = beforeStrip ? axis.Near - besideStrip - whole : axis.Far + besideStrip;
    return {ShiftedInside(axis, start, whole), beforeMenu};
}

// In the middle of the strip, where the frame's line runs: on the bottom and on the right it is as far from the strip's
// outer edge as on the other sides.
Checked PositionAcross(const ControlState& control, const Axis& axis, std::int32_t extent) {
    const std::int32_t side = control.Properties.TabPos;
    const Checked margin = Centred(axis.Far - axis.Near, extent);
    const bool isFar = side == WindowBottom || side == WindowRight;
    return ShiftedInside(axis, isFar ? axis.Far - margin - extent : axis.Near + margin, extent);
}

} // namespace

PixelPoint TabIconPosition(const ControlState& control, std::int16_t index, std::uint8_t state,
                           PngSize iconSize) {
    const LayoutRect& strip = control.Layout.BarStripRect;
    const PropertyValues& p = control.Properties;
    const std::int32_t fillHeight = control.SkinRects[FillPic0 + state].Height;
    const Checked slot = Subtract16(index, control.Layout.FirstVisibleTab);
    const Checked along = slot * p.BarWidth + control.SkinRects[LeftPic0 + state].Width;
    const Checked offset = OffsetOfFill(control, fillHeight);
    if (control.Layout.IsHorizontal)
        return {strip.Left + along + p.IcoXjust,
                strip.Top + offset + Centred(fillHeight, iconSize.LastPngHeight) + p.IcoYjust};
    return {strip.Left + offset + Centred(fillHeight, iconSize.LastPngWidth) + p.IcoXjust,
            strip.Top + along + p.IcoYjust};
}

LayoutRect CloseButtonRect(const ControlState& control, std::int32_t slot) {
    const LayoutRect& strip = control.Layout.BarStripRect;
    const PropertyValues& p = control.Properties;
    const SkinIcons& icons = control.SkinIcons;
    const bool horizontal = control.Layout.IsHorizontal;
    const Extent extent = ExtentOf(icons.At(icons.DeleteButtonIcon));
    const Checked barEnd = (Checked(slot) + 1) * p.BarWidth - p.TabToTab;
    const Checked along = barEnd - WidestTrailingEnd(control.SkinRects) - extent.Along(horizontal);
    return horizontal ? Inclusive(strip.Left + along + p.DelBtnXJust,
                                  strip.Top + Centred(strip.Height, extent.Height) + p.DelBtnYJust, extent)
                      : Inclusive(strip.Left + Centred(strip.Width, extent.Width) + p.DelBtnXJust,
                                  strip.Top + along + p.DelBtnYJust, extent);
}

ButtonRects NavButtonRects(const ControlState& control) {
    const SkinIcons& icons = control.SkinIcons;
    const bool horizontal = control.Layout.IsHorizontal;
    const Extent previous = ExtentOf(icons.At(icons.LeftButtonIcon));
    const Extent next = ExtentOf(icons.At(icons.RightButtonIcon));
    const Extent menu = ExtentOf(icons.At(icons.MenuBarIcon));
    const Checked length =
        Checked(previous.Along(horizontal)) + next.Along(horizontal) + menu.Along(horizontal);
    const auto [start, gapBeforeMenu] = RunOfButtons(
        AxisOf(control, horizontal), control.Properties.TabBarPos == TabRight, length, Overhang(control));
    const auto place = [&](Checked along, const Extent& extent) {
        const Checked across =
            PositionAcross(control, AxisOf(control, !horizontal), extent.Along(!horizontal));
        return horizontal ? Inclusive(along, across, extent) : Inclusive(across, along, extent);
    };
    const Checked afterPrevious = start + previous.Along(horizontal);
    const Checked afterNext = afterPrevious + next.Along(horizontal);
    return {place(start, previous), place(afterPrevious, next), place(afterNext + gapBeforeMenu, menu)};
}

} // namespace vantik

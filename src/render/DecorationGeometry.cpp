#include "render/DecorationGeometry.h"

#include <algorithm>

namespace vantik {

namespace {

constexpr std::int32_t GapBesideStrip = 8;
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

// Lays buttons out one after the other along the strip.
class ButtonRow {
public:
    ButtonRow(const ControlState& control, Checked start) : control_(control), next_(start) {}

    LayoutRect Place(Extent extent) {
        const bool horizontal = control_.Layout.IsHorizontal;
        const LayoutRect& strip = control_.Layout.BarStripRect;
        const PropertyValues& p = control_.Properties;
        const Checked along = next_;
        next_ = next_ + extent.Along(horizontal);
        return horizontal
                   ? Inclusive(along + p.NavBtnXjust,
                               strip.Top + Centred(strip.Height, extent.Height) + p.NavBtnYjust, extent)
                   : Inclusive(strip.Left + Centred(strip.Width, extent.Width) + p.NavBtnXjust,
                               along + p.NavBtnYjust, extent);
    }
    void Skip(std::int32_t gap) { next_ = next_ + gap; }

private:
    const ControlState& control_;
    Checked next_;
};

Checked StartOfButtons(const ControlState& control, Checked length) {
    const LayoutRect& strip = control.Layout.BarStripRect;
    const bool horizontal = control.Layout.IsHorizontal;
    if (control.Properties.TabBarPos == TabRight)
        return Checked(horizontal ? strip.Left : strip.Top) - GapBesideStrip - length;
    return Checked(horizontal ? strip.Right : strip.Bottom) + GapBesideStrip;
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
        Checked(previous.Along(horizontal)) + next.Along(horizontal) + GapBeforeMenu + menu.Along(horizontal);

    ButtonRow row(control, StartOfButtons(control, length));
    ButtonRects rects;
    rects.Previous = row.Place(previous);
    rects.Next = row.Place(next);
    row.Skip(GapBeforeMenu);
    rects.Menu = row.Place(menu);
    return rects;
}

} // namespace vantik

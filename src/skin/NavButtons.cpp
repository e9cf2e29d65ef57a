// The previous, next and menu buttons beside the row of bars.
#include <algorithm>
#include <utility>

#include "base/Checked.h"
#include "gfx/Clip.h"
#include "render/BarGeometry.h"
#include "render/DecorationGeometry.h"
#include "render/FrameGeometry.h"
#include "render/FramePainter.h"
#include "skin/Decorations.h"

namespace vantik {

namespace {

IconStyle StyleOf(bool greyed, Boolean pressed) noexcept {
    if (greyed) return GreyFromGreen;
    return pressed ? Darkened : OwnColours;
}

void Invalidate(HWND window, const LayoutRect& area) {
    const RECT rect = {area.Left, area.Top, area.Right, area.Bottom};
    if (window) InvalidateRect(window, &rect, FALSE); // without a window the whole desktop would be meant
}

} // namespace

IconStyle Decorations::PrevStyle(Boolean pressed) const noexcept {
    return StyleOf(!state_.HasTabsBefore(), pressed);
}

IconStyle Decorations::NextStyle(Boolean pressed) const { return StyleOf(state_.TabsBehind() < 1, pressed); }

IconStyle Decorations::MenuStyle(Boolean pressed) noexcept { return StyleOf(false, pressed); }

// Mixed over the clean underlay, so that drawing it again and again changes nothing. Where a button reaches into the
// row, the bars stay in front: they are repainted without the buttons. What a picture of another size has left goes with
// its place.
bool Decorations::DrawButton(std::int16_t role, std::int32_t x, std::int32_t y, IconStyle style) {
    SkinIcon* icon = state_.SkinIcons.At(role);
    if (!icon) return false;
    const std::int16_t oldWidth = icon->Width, oldHeight = icon->Height;
    const IconPainter::Look look = icons_.Follow(role);
    const LayoutRect area = LayoutRect::FromEdges(x, y, Checked(x) + std::max(oldWidth, icon->Width),
                                                  Checked(y) + std::max(oldHeight, icon->Height));
    {
        const ClipOutside besideRow(host_.hDC(), RowRect(state_));
        FramePainter(host_, state_, surfaces_).PaintUnderlay(area);
        icon = state_.SkinIcons.At(role); // code of the host's picture may have changed the skin
        if (!icon) return false;
        const LayoutRect place =
            LayoutRect::FromEdges(x, y, Checked(x) + icon->Width, Checked(y) + icon->Height);
        const LayoutRect& room = state_.Layout.ControlRect;
        if (look && !IconPainter::IsHidden(place, room))
            icons_.Draw(role, 0, style, icons_.ReadBeneath(place, room), look);
    }
    Invalidate(host_.hWnd(), area);
    if (style == Darkened) state_.ButtonPressed = True;
    return style == Darkened;
}

// A press may run any amount of the host's code before the window paints again.
bool Decorations::ShowButton(bool pressed) {
    host_.Refresh();
    return pressed;
}

bool Decorations::DrawPrevButton(std::int32_t x, std::int32_t y, Boolean pressed) {
    return ShowButton(DrawButton(state_.SkinIcons.LeftButtonIcon, x, y, PrevStyle(pressed)));
}

bool Decorations::DrawNextButton(std::int32_t x, std::int32_t y, Boolean pressed) {
    return ShowButton(DrawButton(state_.SkinIcons.RightButtonIcon, x, y, NextStyle(pressed)));
}

bool Decorations::DrawMenuButton(std::int32_t x, std::int32_t y, Boolean pressed) {
    return ShowButton(DrawButton(state_.SkinIcons.MenuBarIcon, x, y, MenuStyle(pressed)));
}

// A longer or a shorter bar at the row's end pushes them aside without anything else being repainted.
void Decorations::EraseButtonsThatMoveTo(const ButtonRects& rects) {
    const std::optional<ButtonRects> old = std::exchange(shownButtons_, rects);
    if (!old || *old == rects) return;
    const ClipOutside besideRow(host_.hDC(), RowRect(state_));
    for (const LayoutRect& rect : {old->Previous, old->Next, old->Menu}) {
        const LayoutRect area =
            LayoutRect::FromEdges(rect.Left, rect.Top, Checked(rect.Right) + 1, Checked(rect.Bottom) + 1);
        FramePainter(host_, state_, surfaces_).PaintUnderlay(area);
        Invalidate(host_.hWnd(), area);
    }
}

void Decorations::DrawNavButtons() {
    const ButtonRects rects = NavButtonRects(state_);
    EraseButtonsThatMoveTo(rects);
    const SkinIcons& icons = state_.SkinIcons;
    DrawButton(icons.LeftButtonIcon, rects.Previous.Left, rects.Previous.Top, PrevStyle(False));
    DrawButton(icons.RightButtonIcon, rects.Next.Left, rects.Next.Top, NextStyle(False));
    DrawButton(icons.MenuBarIcon, rects.Menu.Left, rects.Menu.Top, MenuStyle(False));
}

} // namespace vantik

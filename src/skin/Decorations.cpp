#include "skin/Decorations.h"

#include <algorithm>
#include <optional>

#include "base/Checked.h"
#include "gfx/Clip.h"
#include "render/BarGeometry.h"
#include "render/DecorationGeometry.h"
#include "render/FrameGeometry.h"
#include "skin/IconReference.h"

namespace vantik {

namespace {

// What is copied from a cached tab icon, whatever its size: of a larger one only a part is seen again.
constexpr std::int32_t CachedTabIconExtent = 20;

LayoutRect RoomOfTab(const ControlState& state, std::int16_t index) {
    return RoomRect(state, SlotOf(state, index));
}

LayoutRect RectAt(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height) {
    return LayoutRect::FromEdges(x, y, Checked(x) + width, Checked(y) + height);
}

} // namespace

// Stays on its own bar, so that repainting the bar takes all of the icon away.
PixelBlock Decorations::DrawOnBar(std::int16_t index, std::int16_t icon, std::uint8_t slot, IconStyle style,
                                  const LayoutRect& place, const IconPainter::Look& look) {
    const SkinIcon& entry = *state_.SkinIcons.At(icon);
    const LayoutRect whole = RectAt(place.Left, place.Top, entry.Width, entry.Height);
    const LayoutRect room = RoomOfTab(state_, index);
    if (IconPainter::IsHidden(whole, room)) return {};
    std::optional<Clip> clip; // only for icons that do not fit their bar
    if (Intersection(whole, room) != whole) clip.emplace(host_.hDC(), room);
    PixelBlock beneath = icons_.ReadBeneath(place, Intersection(room, state_.Layout.ControlRect));
    icons_.Draw(icon, slot, style, beneath, look);
    return beneath;
}

void Decorations::DrawTabIcon(std::int16_t index, std::uint8_t state) {
    const TabRecord& tab = state_.Tabs(index);
    const bool enabled = tab.Enable != False;
    const StateCode code = TabIconCode(state, enabled);
    state_.StateCode = code.Code;
    const std::int16_t reference = ResolveIcon(state_.SkinIcons, tab.Ico);
    SkinIcon* icon = state_.SkinIcons.At(reference);
    if (!icon) return;
    IconPainter::Look look;
    if (icon->Handles[code.Slot] == NoBitmap && !(look = icons_.ReadSize(*icon))) return;
    const PixelPoint at = TabIconPosition(state_, index, state, {icon->Width, icon->Height});
    const LayoutRect place = RectAt(at.X, at.Y, std::min<std::int32_t>(icon->Width, CachedTabIconExtent),
                                    std::min<std::int32_t>(icon->Height, CachedTabIconExtent));
    DrawOnBar(index, reference, code.Slot, enabled ? OwnColours : GreyFromGreen, place, look);
}

std::int32_t Decorations::TabIconWidth(std::int16_t index) {
    SkinIcon* icon = state_.SkinIcons.At(ResolveIcon(state_.SkinIcons, state_.Tabs(index).Ico));
    if (!icon) return 0;
    if (icon->Width < 0) icons_.ReadSize(*icon);
    return std::max<std::int32_t>(icon->Width, 0);
}

// The caller's State becomes the slot's number, whether or not there is a button.
std::uint8_t Decorations::TakeCloseButtonSlot(std::uint8_t& state, std::uint8_t flag) {
    StateCode code = CloseButtonCode(state, flag);
    state_.StateCode = std::move(code.Code);
    return state = code.Slot;
}

void Decorations::DrawCloseButton(std::int16_t index, std::uint8_t& state, std::uint8_t& flag) {
    const std::uint8_t slot = TakeCloseButtonSlot(state, flag);
    if (Underlay* old = UnderlayOf(index)) old->Index = NoTab;
    const std::int16_t role = state_.SkinIcons.DeleteButtonIcon;
    SkinIcon* icon = state_.SkinIcons.At(role);
    if (!state_.Properties.DelButton || !icon) return;
    IconPainter::Look look;
    if (icon->Handles[slot] == NoBitmap && !(look = icons_.ReadSize(*icon))) return;
    const LayoutRect button = CloseButtonRect(state_, SlotOf(state_, index));
    const LayoutRect place = RectAt(button.Left, button.Top, icon->Width, icon->Height);
    PixelBlock beneath =
        DrawOnBar(index, role, slot, flag == FlagHovered ? OwnColours : GreyFromBlue, place, look);
    if (Underlay* underlay = UnderlayOf(index)) *underlay = {index, std::move(beneath)};
}

// Null when the tab has no visible bar.
Decorations::Underlay* Decorations::UnderlayOf(std::int16_t index) {
    const std::int32_t slot = SlotOf(state_, index);
    if (!IsVisibleSlot(state_, slot)) return nullptr;
    const auto place = static_cast<std::size_t>(slot);
    if (place >= underlays_.size()) underlays_.resize(place + 1);
    return &underlays_[place];
}

void Decorations::RedrawCloseButton(std::int16_t index, std::uint8_t& state, std::uint8_t& flag) {
    const Underlay* underlay = UnderlayOf(index);
    if (!underlay || underlay->Index != index) {
        TakeCloseButtonSlot(state, flag);
        return;
    }
    const PixelBlock& beneath = underlay->Pixels;
    const PixelBlock shown = icons_.Read(beneath.X, beneath.Y, beneath.Width, beneath.Height);
    {
        const Clip clip(host_.hDC(), RoomOfTab(state_, index));
        icons_.Restore(beneath);
        DrawCloseButton(index, state, flag);
    }
    {
        const ClipOutside clip(host_.hDC(), UncoveredRect(state_, SlotOf(state_, index)));
        icons_.Restore(shown); // later bars stay in front
    }
    host_.Refresh();
}

} // namespace vantik

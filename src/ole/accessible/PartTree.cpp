#include "ole/accessible/PartTree.h"

#include <algorithm>
#include <limits>

#include "render/BarGeometry.h"
#include "render/FrameGeometry.h"

namespace vantik {

namespace {

// Of a rectangle whose Right and Bottom are its last pixels, empty where there is none.
LayoutRect PixelsOf(const LayoutRect& inclusive) {
    if (inclusive.Width < 0 || inclusive.Height < 0 || (!inclusive.Width && !inclusive.Height)) return {};
    return LayoutRect::FromEdges(inclusive.Left, inclusive.Top, Checked(inclusive.Right) + 1,
                                 Checked(inclusive.Bottom) + 1);
}

LayoutRect ButtonArea(const ButtonRects& buttons, PartKind kind) {
    if (kind == PartKind::PreviousButton) return PixelsOf(buttons.Previous);
    return PixelsOf(kind == PartKind::NextButton ? buttons.Next : buttons.Menu);
}

LayoutRect ButtonArea(const ControlState& control, PartKind kind) {
    return ButtonArea(NavButtonRects(control), kind);
}

// What can be seen of it.
LayoutRect Clipped(const ControlState& control, const LayoutRect& whole) {
    const LayoutRect area = Intersection(whole, control.Layout.ControlRect);
    return IsEmpty(area) ? LayoutRect() : area;
}

bool IsShown(const ControlState& control, std::int16_t tab) {
    return IsVisibleSlot(control, SlotOf(control, tab));
}

LayoutRect WholeArea(const ControlState& control, const Part& part) {
    switch (part.Kind) {
    case PartKind::Row: return control.Layout.ControlRect;
    case PartKind::Page: return control.Layout.ClientRect;
    case PartKind::Tab:
        return IsShown(control, part.Tab) ? BarRect(control, SlotOf(control, part.Tab)) : LayoutRect();
    case PartKind::CloseButton:
        return IsShown(control, part.Tab) ? PixelsOf(CloseButtonRect(control, SlotOf(control, part.Tab)))
                                          : LayoutRect();
    default: return ButtonArea(control, part.Kind);
    }
}

// Those of the others that are there, in their order.
template <class Visit>
void ForEachBehindTabs(const ControlState& control, Visit visit) {
    for (const PartKind kind : BehindTabs)
        if (Exists(control, {kind})) visit(Part{kind});
}

struct Centre {
    explicit Centre(const LayoutRect& rect) noexcept
        : X((std::int64_t{rect.Left} + rect.Right) / 2), Y((std::int64_t{rect.Top} + rect.Bottom) / 2) {}
    std::int64_t X, Y;
};

bool LiesBeyond(const Centre& other, const LayoutRect& area, Direction direction) noexcept {
    switch (direction) {
    case Direction::Left: return other.X < area.Left;
    case Direction::Right: return other.X >= area.Right;
    case Direction::Up: return other.Y < area.Top;
    default: return other.Y >= area.Bottom;
    }
}

std::int64_t Distance(const Centre& a, const Centre& b) noexcept {
    return std::abs(a.X - b.X) + std::abs(a.Y - b.Y);
}

// The tabs that are shown, and what stands behind all tabs.
template <class Visit>
void ForEachShown(const ControlState& control, Visit visit) {
    const LayoutCache& layout = control.Layout;
    for (std::int32_t slot = 0; slot < layout.VisibleBarCount; ++slot) {
        const auto tab = static_cast<std::int16_t>(layout.FirstVisibleTab + slot);
        if (control.HasTab(tab)) visit(Part{PartKind::Tab, tab});
    }
    ForEachBehindTabs(control, visit);
}

} // namespace

bool Exists(const ControlState& control, const Part& part) {
    switch (part.Kind) {
    case PartKind::Row: return true;
    case PartKind::Tab: return control.HasTab(part.Tab);
    case PartKind::CloseButton:
        return control.Properties.DelButton && control.HasTab(part.Tab) && !IsEmpty(AreaOf(control, part));
    case PartKind::Page: return control.HasTab(control.Properties.ActiveTab);
    default: return !IsEmpty(ButtonArea(control, part.Kind));
    }
}

Part ParentOf(const Part& part) noexcept {
    return part.Kind == PartKind::CloseButton ? Part{PartKind::Tab, part.Tab} : Part{};
}

std::int32_t CountChildren(const ControlState& control, const Part& part) {
    if (part.Kind == PartKind::Tab) return Exists(control, {PartKind::CloseButton, part.Tab});
    if (part.Kind != PartKind::Row) return 0;
    std::int32_t count = control.Properties.TabCount;
    ForEachBehindTabs(control, [&](const Part&) { ++count; });
    return count;
}

std::optional<Part> ChildAt(const ControlState& control, const Part& part, std::int32_t index) {
    if (index < 0 || index >= CountChildren(control, part)) return std::nullopt;
    if (part.Kind == PartKind::Tab) return Part{PartKind::CloseButton, part.Tab};
    if (index < control.Properties.TabCount) return Part{PartKind::Tab, static_cast<std::int16_t>(index)};
    index -= control.Properties.TabCount;
    std::optional<Part> found;
    ForEachBehindTabs(control, [&](const Part& other) {
        if (index-- == 0) found = other;
    });
    return found;
}

std::int32_t IndexOf(const ControlState& control, const Part& part) {
    if (part.Kind == PartKind::Tab) return part.Tab;
    if (part.Kind == PartKind::CloseButton) return 0;
    std::int32_t index = control.Properties.TabCount;
    bool isBehind = false;
    ForEachBehindTabs(control, [&](const Part& other) {
        isBehind |= other == part;
        index += !isBehind;
    });
    return index;
}

LayoutRect AreaOf(const ControlState& control, const Part& part) {
    return Clipped(control, WholeArea(control, part));
}

std::array<std::optional<LayoutRect>, BehindTabs.size()> AreasBehindTabs(const ControlState& control) {
    const ButtonRects buttons = NavButtonRects(control);
    std::array<std::optional<LayoutRect>, BehindTabs.size()> areas;
    std::ranges::transform(BehindTabs, areas.begin(), [&](PartKind kind) -> std::optional<LayoutRect> {
        const bool isPage = kind == PartKind::Page;
        const LayoutRect whole = isPage ? control.Layout.ClientRect : ButtonArea(buttons, kind);
        if (isPage ? !Exists(control, {kind}) : IsEmpty(whole)) return std::nullopt;
        return Clipped(control, whole);
    });
    return areas;
}

std::optional<Part> PartAt(const ControlState& control, const Part& part, PixelPoint pixel) {
    const auto has = [&](const Part& one) { return IsPixelOf(AreaOf(control, one), pixel.X, pixel.Y); };
    if (!has(part)) return std::nullopt;
    if (part.Kind == PartKind::Tab) {
        const Part button = {PartKind::CloseButton, part.Tab};
        return Exists(control, button) && has(button) ? button : part;
    }
    std::optional<Part> found;
    if (part.Kind == PartKind::Row)
        ForEachShown(control, [&](const Part& child) {
            const bool isBehind =
                found && child.Kind != PartKind::Tab; // a later bar lies over an earlier one
            if (!isBehind && has(child)) found = child;
        });
    return found ? found : part;
}

std::optional<Part> Neighbour(const ControlState& control, const Part& part, Direction direction) {
    const LayoutRect area = AreaOf(control, part);
    std::optional<Part> nearest;
    std::int64_t least = std::numeric_limits<std::int64_t>::max();
    if (IsEmpty(area) || !(ParentOf(part) == Part{}) || part == Part{}) return nearest;
    ForEachShown(control, [&](const Part& other) {
        const LayoutRect place = AreaOf(control, other);
        const Centre middle(place);
        const std::int64_t distance = Distance(Centre(area), middle);
        if (IsEmpty(place) || !LiesBeyond(middle, area, direction) || distance >= least) return;
        least = distance;
        nearest = other;
    });
    return nearest;
}

} // namespace vantik

#include "tests/skin/SkinnedControl.h"

#include <algorithm>
#include <random>

namespace vantik::test {

namespace {

constexpr std::int32_t SurfaceWidth = 260, SurfaceHeight = 150;
constexpr std::int32_t SkinExtent = 64;

// Bars without decorations whose captions are as short as with them.
class NoDecorations final : public BarDecorations {
public:
    explicit NoDecorations(BarDecorations& real) : real_(real) {}
    void DrawTabIcon(std::int16_t, std::uint8_t) override {}
    void DrawCloseButton(std::int16_t, std::uint8_t&, std::uint8_t&) override {}
    void DrawNavButtons() override {}
    std::int32_t TabIconWidth(std::int16_t index) override { return real_.TabIconWidth(index); }

private:
    BarDecorations& real_;
};

// What decorations add to a bar, by plain loops, when the bar is painted: later bars come on top of it.
class PlainDecorations final : public BarDecorations {
public:
    PlainDecorations(SkinnedControl& control, std::int16_t hoveredClose)
        : control_(control), hoveredClose_(hoveredClose) {}
    void DrawTabIcon(std::int16_t index, std::uint8_t) override {
        Pixels shown = control_.Shown();
        control_.MixTabIcon(shown, index);
        control_.Host.Write(shown);
    }
    void DrawCloseButton(std::int16_t index, std::uint8_t&, std::uint8_t&) override {
        if (!control_.State.Properties.DelButton) return;
        Pixels shown = control_.Shown();
        control_.MixCloseButton(shown, index, index == hoveredClose_ ? 3 : 0);
        control_.Host.Write(shown);
    }
    void DrawNavButtons() override {}
    std::int32_t TabIconWidth(std::int16_t index) override {
        return control_.Decorations.TabIconWidth(index);
    }

private:
    SkinnedControl& control_;
    std::int16_t hoveredClose_;
};

void CutPieces(SkinRects& rects, std::uint32_t seed, std::uint32_t widths = 5, std::uint32_t heights = 6) {
    std::mt19937 random(seed);
    for (std::int32_t i = 0; i <= FRightLine; ++i) {
        const bool isOfBars = i < RLeftTopPic;
        const auto width = 1 + static_cast<std::int32_t>(random() % (isOfBars ? widths : 5));
        const auto height = isOfBars ? 17 + static_cast<std::int32_t>(random() % heights)
                                     : 1 + static_cast<std::int32_t>(random() % 4);
        const auto left = static_cast<std::int32_t>(random() % 36),
                   top = static_cast<std::int32_t>(random() % 36);
        rects[i] = {left, top, left + width - 1, top + height - 1, width, height};
    }
    rects[BRect].Height = 22;
    rects[TabRect].Height = 11;
}

bool IsVertical(const ControlState& state) {
    return state.Properties.TabPos == WindowLeft || state.Properties.TabPos == WindowRight;
}

constexpr RECT Everywhere = {0, 0, SurfaceWidth, SurfaceHeight};

} // namespace

SkinnedControl::SkinnedControl(std::uint32_t seed, bool withWindow)
    : Host(SurfaceWidth, SurfaceHeight, withWindow),
      Decorations(Host, State, Surfaces),
      Driver(Host, State, Surfaces, Decorations) {
    Surfaces.SkinDC.CreateFromPicture(PictureOf(Patterned(SkinExtent, SkinExtent, seed)).Get());
    Surfaces.Font = Host.Font;
    CutPieces(State.SkinRects, seed);
    State.Properties.BarWidth = 47;
    State.Properties.DefaultCaption.clear();
}

std::int16_t SkinnedControl::AddIcon(const std::u16string& name, const IconPicture& picture) {
    const std::int16_t index = State.SkinIcons.SkinIconCount();
    const std::u16string file = u"icon" + std::u16string(1, static_cast<char16_t>(u'a' + index)) + u".png";
    Folder.Write(file, AsPng(picture));
    SkinIcon& icon = State.SkinIcons.Append();
    icon.Name = name;
    icon.FilePath = Folder.Path() + u"\\" + file;
    Pictures.push_back(picture);
    std::int16_t SkinIcons::*role = name == u"DELETEBUTTON"  ? &SkinIcons::DeleteButtonIcon
                                    : name == u"LEFTBUTTON"  ? &SkinIcons::LeftButtonIcon
                                    : name == u"RIGHTBUTTON" ? &SkinIcons::RightButtonIcon
                                    : name == u"MENUBAR"     ? &SkinIcons::MenuBarIcon
                                                             : nullptr;
    if (!role) return index;
    State.SkinIcons.*role = index;
    icon.Width = static_cast<std::int16_t>(picture.Width);
    icon.Height = static_cast<std::int16_t>(picture.Height);
    return index;
}

void SkinnedControl::AddButtons() {
    AddIcon(u"DELETEBUTTON", RandomIcon(9, 8, 11));
    AddIcon(u"LEFTBUTTON", RandomIcon(7, 6, 12));
    AddIcon(u"RIGHTBUTTON", RandomIcon(8, 7, 13));
    AddIcon(u"MENUBAR", RandomIcon(6, 9, 14));
}

void SkinnedControl::RemoveFile(std::int16_t icon) const {
    DeleteFileW(AsWide(State.SkinIcons.At(icon)->FilePath));
}

void SkinnedControl::CutUnusualPieces(std::uint32_t seed) { CutPieces(State.SkinRects, seed, 20, 12); }

void SkinnedControl::SetTabCount(std::int16_t count) {
    State.Properties.TabCount = count;
    State.Tabs.Resize(count);
    for (std::int16_t i = 0; i < count; ++i) State.Tabs(i) = {u"", u"-1", True};
}

Pixels SkinnedControl::WithoutDecorations() {
    const Pixels shown = Host.Read();
    NoDecorations none(Decorations);
    RepaintDriver(Host, State, Surfaces, none).RepaintAll();
    Pixels bare = Host.Read();
    Host.Write(shown);
    return bare;
}

Pixels SkinnedControl::Expected(std::int16_t hoveredClose) {
    const Pixels shown = Host.Read();
    PlainDecorations plain(*this, hoveredClose);
    RepaintDriver(Host, State, Surfaces, plain).RepaintAll();
    const Pixels bars = Host.Read();
    Host.Write(shown);
    Pixels picture = bars;
    MixNavButtons(picture);
    const RECT row = Row(); // in front of a button that reaches into it
    for (std::int32_t y = row.top; y < row.bottom; ++y)
        for (std::int32_t x = row.left; x < row.right; ++x) picture.Set(x, y, bars.At(x, y));
    return picture;
}

RECT SkinnedControl::Row() const {
    const LayoutRect& strip = State.Layout.BarStripRect;
    const std::int32_t beyond = std::max(-State.Properties.TabToTab, 0);
    if (IsVertical(State)) return {strip.Left, strip.Top, strip.Right, strip.Bottom + beyond};
    return {strip.Left, strip.Top, strip.Right + beyond, strip.Bottom};
}

RECT SkinnedControl::Room(std::int16_t tab) const {
    RECT room = Slot(tab);
    (IsVertical(State) ? room.bottom : room.right) += std::max(-State.Properties.TabToTab, 0);
    return room;
}

RECT SkinnedControl::Slot(std::int16_t tab) const {
    const LayoutRect& strip = State.Layout.BarStripRect;
    const std::int32_t width = State.Properties.BarWidth,
                       start = (tab - State.Layout.FirstVisibleTab) * width;
    if (IsVertical(State)) return {strip.Left, strip.Top + start, strip.Right, strip.Top + start + width};
    return {strip.Left + start, strip.Top, strip.Left + start + width, strip.Bottom};
}

std::int16_t SkinnedControl::IconOf(std::int16_t tab) const {
    for (std::int16_t i = 0; i < State.SkinIcons.SkinIconCount(); ++i)
        if (State.SkinIcons.At(i)->Name == State.Tabs(tab).Ico) return i;
    return -1;
}

void SkinnedControl::MixTabIcon(Pixels& onto, std::int16_t tab) const {
    const std::int16_t icon = IconOf(tab);
    if (icon < 0) return;
    const PropertyValues& p = State.Properties;
    const IconPicture& picture = Pictures[static_cast<std::size_t>(icon)];
    const int look = tab == p.ActiveTab ? 2 : tab == State.HoverTab ? 1 : 0;
    const std::int32_t fill = State.SkinRects[2 + look].Height, end = State.SkinRects[5 + look].Width;
    const RECT slot = Slot(tab);
    const LayoutRect& strip = State.Layout.BarStripRect;
    POINT at;
    if (IsVertical(State)) {
        at = {strip.Left + (fill - picture.Width) / 2 + p.IcoXjust, slot.top + end + p.IcoYjust};
        if (p.TabPos == WindowLeft) at.x += strip.Width - fill;
    } else {
        at = {slot.left + end + p.IcoXjust, strip.Top + (fill - picture.Height) / 2 + p.IcoYjust};
        if (p.TabPos == Windowtop) at.y += strip.Height - fill;
    }
    Mix(onto, picture, at.x, at.y, State.Tabs(tab).Enable ? 3 : 1, Room(tab));
}

void SkinnedControl::MixCloseButton(Pixels& onto, std::int16_t tab, int style) const {
    const PropertyValues& p = State.Properties;
    const auto role = static_cast<std::size_t>(State.SkinIcons.DeleteButtonIcon);
    if (role >= Pictures.size()) return;
    const IconPicture& picture = Pictures[role];
    const std::int32_t widest =
        std::max({State.SkinRects[8].Width, State.SkinRects[9].Width, State.SkinRects[10].Width});
    const RECT slot = Slot(tab);
    POINT at;
    if (IsVertical(State))
        at = {slot.left + (slot.right - slot.left - picture.Width) / 2,
              slot.bottom - p.TabToTab - widest - picture.Height};
    else
        at = {slot.right - p.TabToTab - widest - picture.Width,
              slot.top + (slot.bottom - slot.top - picture.Height) / 2};
    Mix(onto, picture, at.x + p.DelBtnXJust, at.y + p.DelBtnYJust, style, Room(tab));
}

void SkinnedControl::MixButton(Pixels& onto, std::int16_t role, POINT at, bool greyed) const {
    if (role >= 0 && static_cast<std::size_t>(role) < Pictures.size())
        Mix(onto, Pictures[static_cast<std::size_t>(role)], at.x, at.y, greyed ? 1 : 3, Everywhere);
}

void SkinnedControl::MixNavButtons(Pixels& onto) const {
    const LayoutRect& strip = State.Layout.BarStripRect;
    const PropertyValues& p = State.Properties;
    const bool vertical = IsVertical(State);
    const std::int16_t roles[] = {State.SkinIcons.LeftButtonIcon, State.SkinIcons.RightButtonIcon,
                                  State.SkinIcons.MenuBarIcon};
    const std::int32_t past = State.Layout.FirstVisibleTab + State.Layout.VisibleBarCount;
    const bool greyed[] = {State.Layout.FirstVisibleTab < 1, p.TabCount - past < 1, false};
    SIZE sizes[3] = {};
    std::int32_t length = 0;
    for (int i = 0; i < 3; ++i) {
        const SkinIcon* icon = State.SkinIcons.At(roles[i]);
        if (icon) sizes[i] = {icon->Width, icon->Height};
        length += vertical ? sizes[i].cy : sizes[i].cx;
    }

    // Along the strip: shifted, less and less far from the strip until the control's edge is kept.
    const std::int32_t end = vertical ? SurfaceHeight : SurfaceWidth;
    const std::int32_t shift = vertical ? p.NavBtnYjust : p.NavBtnXjust;
    const std::int32_t first = vertical ? strip.Top : strip.Left,
                       last = vertical ? strip.Bottom : strip.Right;
    bool before = p.TabBarPos == TabRight;
    const bool roomBefore = first >= length, roomBehind = end - last >= length;
    if (roomBefore != roomBehind) before = before ? roomBefore : !roomBehind;
    // What the last bar hides behind the strip is kept free before anything else.
    const std::int32_t hidden = before ? 0 : std::max(-p.TabToTab - std::max(shift, 0), 0);
    std::int32_t beside = std::max(8, hidden + 2), beforeMenu = 2, along = 0;
    for (;;) {
        const std::int32_t whole = length + beforeMenu;
        along = shift + (before ? first - beside - whole : last + beside);
        const bool inside = before ? along >= 0 : along + whole <= end;
        if (inside || beside + beforeMenu == 0) break;
        --(beside > hidden || beforeMenu == 0 ? beside : beforeMenu);
    }
    while (along + length + beforeMenu > end + std::max(shift, 0)) --along;
    while (along < std::min(shift, 0)) ++along;

    for (int i = 0; i < 3; ++i) {
        if (i == 2) along += beforeMenu;
        MixButton(
            onto, roles[i],
            vertical ? POINT{AcrossButton(sizes[i].cx), along} : POINT{along, AcrossButton(sizes[i].cy)},
            greyed[i]);
        along += vertical ? sizes[i].cy : sizes[i].cx;
    }
}

// Where a button of this thickness stands across the strip: in its middle, counted from the outer edge, and shifted; no
// farther out of the control than it is shifted.
std::int32_t SkinnedControl::AcrossButton(std::int32_t thickness) const {
    const LayoutRect& strip = State.Layout.BarStripRect;
    const std::int32_t margin = (22 - thickness) / 2;
    const std::int32_t end = IsVertical(State) ? SurfaceWidth : SurfaceHeight;
    std::int32_t at = 0;
    switch (State.Properties.TabPos) {
    case Windowtop: at = strip.Top + margin; break;
    case WindowBottom: at = strip.Bottom - margin - thickness; break;
    case WindowLeft: at = strip.Left + margin; break;
    default: at = strip.Right - margin - thickness; break;
    }
    const std::int32_t shift =
        IsVertical(State) ? State.Properties.NavBtnXjust : State.Properties.NavBtnYjust;
    for (at += shift; at + thickness > end + std::max(shift, 0);) --at;
    while (at < std::min(shift, 0)) ++at;
    return at;
}

} // namespace vantik::test

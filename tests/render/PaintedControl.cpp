#include "tests/render/PaintedControl.h"

#include <algorithm>
#include <utility>

#include "render/BarGeometry.h"

namespace vantik::test {

namespace {

constexpr std::uint32_t Key = 0xFF00FF;
constexpr std::int32_t SkinWidth = 200, SkinHeight = 40;

void Copy(Pixels& target, const Pixels& source, const SkinRect& from, std::int32_t x, std::int32_t y) {
    for (std::int32_t j = 0; j < from.Height; ++j)
        for (std::int32_t i = 0; i < from.Width; ++i) {
            const std::uint32_t pixel = source.At(from.Left + i, from.Top + j);
            if (pixel != Key) target.Set(x + i, y + j, pixel);
        }
}

// Of a piece of one pixel in the direction in which it is stretched.
void Stretch(Pixels& target, const Pixels& source, const SkinRect& from, std::int32_t x, std::int32_t y,
             std::int32_t width, std::int32_t height) {
    for (std::int32_t j = 0; j < height; ++j)
        for (std::int32_t i = 0; i < width; ++i)
            target.Set(
                x + i, y + j,
                source.At(from.Left + std::min(i, from.Width - 1), from.Top + std::min(j, from.Height - 1)));
}

class ExpectedPicture {
public:
    ExpectedPicture(const PaintedControl& painted, LONG offX, LONG offY)
        : painted_(painted),
          state_(painted.State),
          rects_(state_.SkinRects),
          page_(state_.Layout.ClientRect) {
        const SkinRect& back = rects_[FBackPic];
        const LayoutRect& all = state_.Layout.ControlRect;
        picture_ = Pixels(all.Width, all.Height, painted.Skin.At(back.Left, back.Top));
        PaintEdges();
        PaintPicture(offX, offY);
        PaintCorners();
        for (std::int32_t slot = 0; slot < state_.Layout.VisibleBarCount; ++slot) PaintBar(slot);
    }

    Pixels Take() { return std::move(picture_); }

private:
    const SkinRect& R(std::int32_t index) const { return rects_[index]; }

    void PaintEdges() {
        const auto edge = [&](std::int32_t index, std::int32_t x, std::int32_t y, std::int32_t w,
                              std::int32_t h) { Stretch(picture_, painted_.Skin, R(index), x, y, w, h); };
        edge(FLeftLine, page_.Left, page_.Top, R(FLeftLine).Width, page_.Height);
        edge(FRightLine, page_.Right - R(FBottomLine).Width, page_.Top, R(FRightLine).Width, page_.Height);
        edge(FTopLine, page_.Left, page_.Top, page_.Width, R(FTopLine).Height);
        edge(FBottomLine, page_.Left, page_.Bottom, page_.Width, R(FBottomLine).Height);
    }

    void PaintPicture(LONG offX, LONG offY) {
        for (std::int32_t y = page_.Top + R(FTopLine).Height; y < page_.Bottom; ++y)
            for (std::int32_t x = page_.Left + R(FLeftLine).Width; x < page_.Right - R(FBottomLine).Width;
                 ++x) {
                if (!painted_.Picture.Has(x + offX, y + offY)) continue;
                const std::uint32_t pixel = painted_.Picture.At(x + offX, y + offY);
                if (pixel != Key) picture_.Set(x, y, pixel);
            }
    }

    void PaintCorners() {
        const std::int32_t end = page_.Bottom + R(FBottomLine).Height;
        Copy(picture_, painted_.Skin, R(RLeftTopPic), page_.Left, page_.Top);
        Copy(picture_, painted_.Skin, R(RRightTopPic), page_.Right - R(RRightTopPic).Width, page_.Top);
        Copy(picture_, painted_.Skin, R(RLeftBottom), page_.Left, end - R(RLeftBottom).Height);
        Copy(picture_, painted_.Skin, R(RRightBottom), page_.Right - R(RRightBottom).Width,
             end - R(RRightBottom).Height);
    }

    void PaintBar(std::int32_t slot) {
        const PropertyValues& p = state_.Properties;
        const auto s = static_cast<std::int32_t>(
            state_.StateOf(static_cast<std::int16_t>(state_.Layout.FirstVisibleTab + slot)));
        const bool first = slot == 0, last = slot == state_.Layout.VisibleBarCount - 1;
        if (p.TabBorder == True) {
            const std::int32_t length = p.BarWidth - p.TabToTab;
            Fill(slot, s, R(LeftPic0 + s).Width, length - R(RightPic0 + s).Width);
            Piece(slot, LeftPic0, s, 0);
            Piece(slot, RightPic0, s, length - R(RightPic0 + s).Width);
        } else if (p.TabBorder == False) {
            const std::int32_t end = last ? RightPic0 : Line0;
            Fill(slot, s, first ? R(LeftPic0 + s).Width : 0, p.BarWidth - R(end + s).Width);
            if (first) Piece(slot, LeftPic0, s, 0);
            Piece(slot, end, s, p.BarWidth - R(end + s).Width);
        }
    }

    void Fill(std::int32_t slot, std::int32_t s, std::int32_t from, std::int32_t to) {
        for (std::int32_t u = from; u < to; ++u)
            for (std::int32_t j = 0; j < R(FillPic0 + s).Height; ++j)
                Plot(slot, u, R(FillPic0 + 2).Height - R(FillPic0 + s).Height + j,
                     painted_.Skin.At(R(FillPic0 + s).Left, R(FillPic0 + s).Top + j));
    }

    void Piece(std::int32_t slot, std::int32_t family, std::int32_t s, std::int32_t u) {
        const SkinRect& piece = R(family + s);
        for (std::int32_t j = 0; j < piece.Height; ++j)
            for (std::int32_t i = 0; i < piece.Width; ++i) {
                const std::uint32_t pixel = painted_.Skin.At(piece.Left + i, piece.Top + j);
                if (pixel != Key) Plot(slot, u + i, R(family + 2).Height - piece.Height + j, pixel);
            }
    }

    // A pixel of a bar as it is drawn for the top, turned to its side. It stays inside the strip, but where bars are longer
    // than their slots the last one has its end behind it.
    void Plot(std::int32_t slot, std::int32_t u, std::int32_t v, std::uint32_t colour) {
        const LayoutRect& strip = state_.Layout.BarStripRect;
        const std::int32_t along = slot * state_.Properties.BarWidth + u;
        const std::int32_t length = state_.Layout.IsHorizontal ? strip.Width : strip.Height;
        const std::int32_t thickness = state_.Layout.IsHorizontal ? strip.Height : strip.Width;
        const std::int32_t gap = state_.Properties.TabToTab;
        if (along < 0 || along >= length + (gap < 0 ? -gap : 0) || v < 0 || v >= thickness) return;
        switch (state_.Properties.TabPos) {
        case Windowtop: return picture_.Set(strip.Left + along, strip.Top + v, colour);
        case WindowBottom: return picture_.Set(strip.Left + along, strip.Bottom - 1 - v, colour);
        case WindowLeft: return picture_.Set(strip.Left + v, strip.Top + along, colour);
        case WindowRight: return picture_.Set(strip.Right - 1 - v, strip.Top + along, colour);
        default: return;
        }
    }

    const PaintedControl& painted_;
    const ControlState& state_;
    const SkinRects& rects_;
    const LayoutRect& page_;
    Pixels picture_;
};

} // namespace

void FakeDecorations::DrawTabIcon(std::int16_t index, std::uint8_t state) {
    Note("icon " + std::to_string(index) + " " + std::to_string(state));
    Square(index, 3, RGB(10, 10 * state, index));
}

void FakeDecorations::DrawCloseButton(std::int16_t index, std::uint8_t& state, std::uint8_t& flag) {
    Note("close " + std::to_string(index) + " " + std::to_string(state) + " " + std::to_string(flag));
    state = 5;
    flag = 7;
    const std::int32_t gap = control_.Properties.TabToTab;
    Square(index, control_.Properties.BarWidth - gap - 2, RGB(200, 0, 0)); // more than there is room for
}

void FakeDecorations::DrawNavButtons() { Note("buttons"); }

void FakeDecorations::Note(const std::string& entry) {
    if (!log_.empty()) log_ += "; ";
    log_ += entry;
}

std::string FakeDecorations::TakeLog() { return std::exchange(log_, {}); }

void FakeDecorations::Square(std::int16_t index, std::int32_t u, COLORREF colour) {
    if (!Paints) return;
    const PropertyValues& p = control_.Properties;
    const std::int32_t end = std::max<std::int32_t>(p.BarWidth, p.BarWidth - p.TabToTab);
    for (std::int32_t i = std::max(0, -u); i < 5 && u + i < end; ++i) {
        const LayoutRect at = PartRect(control_, SlotOf(control_, index), u + i, 4, 1, 5);
        for (std::int32_t y = at.Top; y < at.Bottom; ++y)
            for (std::int32_t x = at.Left; x < at.Right; ++x) SetPixelV(host_.hDC(), x, y, colour);
    }
}

PaintedControl::PaintedControl(std::int32_t width, std::int32_t height, bool withWindow)
    : Host(width, height, withWindow), Decorations(Host, State), Driver(Host, State, Surfaces, Decorations) {
    Surfaces.Font = Host.Font;
    State.Properties.DelButton = False;
    State.Properties.BarWidth = 30;
}

void PaintedControl::MakeSkin(std::uint32_t seed, SkinWish wish) {
    std::mt19937 random(seed);
    const auto between = [&](std::int32_t low, std::int32_t high) {
        return std::uniform_int_distribution<std::int32_t>(low, high)(random);
    };
    Skin = Patterned(SkinWidth, SkinHeight, seed);
    for (std::uint32_t& value : Skin.Values)
        if (between(0, 5) == 0) value = Key;

    std::int32_t x = 0;
    const auto cut = [&](std::int32_t index, std::int32_t width, std::int32_t height) {
        const std::int32_t top = between(0, SkinHeight - height);
        State.SkinRects[index] = {x, top, x + width - 1, top + height - 1, width, height};
        x += width;
    };
    const std::int32_t tall = wish.Unusual ? 30 : 22,
                       wide = wish.Unusual ? 20 : 6; // the strip's thickness is 22
    for (std::int32_t s = 0; s < 3; ++s) {
        cut(FillPic0 + s, 1, between(14, tall));
        cut(LeftPic0 + s, between(1, wide), between(12, tall));
        cut(RightPic0 + s, between(1, wide), between(12, tall));
        cut(Line0 + s, between(1, 2), between(12, tall));
    }
    cut(FBackPic, 1, 1);
    Skin.Set(State.SkinRects[FBackPic].Left, State.SkinRects[FBackPic].Top, 0x336699);
    cut(FTopLine, 1, wish.PlainFrame ? 1 : between(1, 3));
    cut(FBottomLine, 1, wish.PlainFrame ? 1 : between(1, 3));
    cut(FLeftLine, wish.PlainFrame ? 1 : between(1, 3), 1);
    cut(FRightLine, 1, 1);
    for (const std::int32_t index : {FTopLine, FBottomLine, FLeftLine, FRightLine}) {
        if (wish.PlainFrame) Skin.Set(State.SkinRects[index].Left, State.SkinRects[index].Top, 0xABCDEF);
    }
    for (const std::int32_t index : {RLeftTopPic, RRightTopPic, RLeftBottom, RRightBottom}) {
        if (wish.PlainFrame)
            State.SkinRects[index] = {};
        else
            cut(index, between(3, 7), between(3, 7));
    }
    State.SkinRects[TabRect] = {0, 0, 99, 10, 100, 11};
    State.SkinRects[BRect] = {13, 0, 0, 21, -12, 22};
    Surfaces.SkinDC.CreateFromPicture(PictureOf(Skin).Get());
}

void PaintedControl::AddTabs(std::int16_t count) {
    State.Tabs.Resize(count);
    for (std::int16_t i = 0; i < count; ++i) State.Tabs(i).Enable = True;
    State.Properties.TabCount = count;
}

Pixels PaintedControl::Expected() const {
    const auto pixels = [](double twips) {
        return static_cast<LONG>(twips / FakeUserControl::TwipsPerPixel);
    };
    return ExpectedPicture(*this, pixels(Host.LeftTwips), pixels(Host.TopTwips)).Take();
}

RandomControl::RandomControl(std::uint32_t seed) : Random(seed), Painted(Between(60, 200), Between(50, 160)) {
    PropertyValues& p = Painted.State.Properties;
    p.TabPos = Between(0, 3);
    p.TabBarPos = Between(0, 3);
    p.TabBorder = Chance(50) ? True : False;
    p.BarWidth = Small(1, 40);
    p.TabToTab = Chance(50) ? Small(-25, 5) : std::int16_t{0};
    p.FrameDist = Chance(30) ? Small(0, 9) : std::int16_t{0};
    p.TabBarPosXJust = Chance(30) ? Small(-9, 9) : std::int16_t{0};
    p.TabBarPosYJust = Chance(30) ? Small(-9, 9) : std::int16_t{0};
    Painted.State.Layout.FirstVisibleTab = Small(0, 8);
    Painted.MakeSkin(Random(), {.Unusual = Chance(40)});
    if (Chance(30)) {
        Painted.Picture = Patterned(Between(1, 250), Between(1, 250), Random());
        for (std::uint32_t& value : Painted.Picture.Values)
            if (Chance(10)) value = Key;
        Painted.Surfaces.Picture = PictureOf(Painted.Picture);
        Painted.Host.LeftTwips = FakeUserControl::TwipsPerPixel * Between(-20, 60);
        Painted.Host.TopTwips = FakeUserControl::TwipsPerPixel * Between(-20, 60);
    }
}

std::int32_t RandomControl::Between(std::int32_t low, std::int32_t high) {
    return std::uniform_int_distribution<std::int32_t>(low, high)(Random);
}

void RandomControl::RandomTabs(bool withCaptions) {
    const std::int16_t count = Small(0, 12);
    Painted.AddTabs(count);
    Painted.State.Properties.ActiveTab = Small(-1, count);
    Painted.State.HoverTab = Small(-1, count);
    for (std::int16_t i = 0; i < count; ++i) {
        TabRecord& tab = Painted.State.Tabs(i);
        tab.Enable = Chance(80) ? True : False;
        if (withCaptions)
            tab.Caption = std::u16string(u"Wide caption").substr(static_cast<std::size_t>(Between(0, 11)));
    }
}

void RandomControl::ChangeLooks() {
    PropertyValues& p = Painted.State.Properties;
    p.ActiveTab = Small(-1, p.TabCount);
    Painted.State.HoverTab = Small(-1, p.TabCount);
    p.CaptionPos = Between(0, 2);
    p.CaptionColor0 = Between(0, 0xFFFFFF);
    p.CaptionXjust = Small(-12, 12);
    p.CaptionYjust = Small(-12, 12);
    for (std::int16_t i = 0; i < p.TabCount; ++i)
        if (Chance(30)) Painted.State.Tabs(i).Enable = Chance(50) ? True : False;
    const std::int32_t shown = Painted.State.Layout.VisibleBarCount;
    if (shown > 0 && Chance(30)) Painted.State.Layout.FirstVisibleTab = Small(0, p.TabCount - shown);
}

} // namespace vantik::test

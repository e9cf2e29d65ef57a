// Laws of painting with decorations, over random states.
#include <doctest/doctest.h>

#include <algorithm>
#include <random>

#include "render/BarGeometry.h"
#include "render/DecorationGeometry.h"
#include "tests/skin/SkinnedControl.h"

using namespace vantik;
using namespace vantik::test;

namespace {

class Dice {
public:
    explicit Dice(std::uint32_t seed) : random_(seed) {}
    std::int16_t From(int low, int high) {
        return static_cast<std::int16_t>(
            low + static_cast<int>(random_() % static_cast<std::uint32_t>(high - low + 1)));
    }
    bool Once(int outOf) { return From(1, outOf) == 1; }
    std::uint32_t Seed() { return random_(); }

private:
    std::mt19937 random_;
};

// A picture behind the control, aligned with a container that the control stands somewhere in.
void PutPictureBehind(SkinnedControl& control, Dice& dice) {
    control.Surfaces.Picture = PictureOf(Patterned(dice.From(1, 300), dice.From(1, 200), dice.Seed()));
    control.Host.LeftTwips = FakeUserControl::TwipsPerPixel * dice.From(-20, 60);
    control.Host.TopTwips = FakeUserControl::TwipsPerPixel * dice.From(-20, 60);
}

std::int16_t Seldom(Dice& dice, int low, int high) {
    return dice.Once(3) ? dice.From(low, high) : std::int16_t{0};
}

void Shuffle(SkinnedControl& control, Dice& dice) {
    PropertyValues& p = control.State.Properties;
    p.TabPos = dice.From(WindowLeft, WindowBottom);
    p.TabBarPos = dice.From(TabLeft, TabCustom);
    p.BarWidth = dice.Once(5) ? dice.From(3, 13) : dice.From(14, 70);
    p.TabToTab = dice.Once(2) ? dice.From(-30, 6) : std::int16_t{0};
    p.TabBorder = dice.Once(2) ? True : False;
    p.FrameDist = dice.From(0, 4);
    p.DelButton = dice.Once(4) ? False : True;
    p.TabBarPosXJust = Seldom(dice, -9, 9);
    p.TabBarPosYJust = Seldom(dice, -9, 9);
    p.IcoXjust = Seldom(dice, -9, 9);
    p.IcoYjust = Seldom(dice, -9, 9);
    p.DelBtnXJust = Seldom(dice, -9, 9);
    p.DelBtnYJust = Seldom(dice, -9, 9);
    p.NavBtnXjust = Seldom(dice, -12, 9);
    p.NavBtnYjust = Seldom(dice, -12, 9);
    control.State.Layout.FirstVisibleTab = dice.From(0, 8);
    control.Surfaces.Picture = nullptr;
    if (dice.Once(3)) PutPictureBehind(control, dice);
}

void ShuffleLooks(SkinnedControl& control, Dice& dice) {
    const std::int16_t count = control.State.Properties.TabCount;
    control.State.Properties.ActiveTab = dice.From(-1, count);
    control.State.HoverTab = dice.From(-1, count - 1);
    constexpr const char16_t* keys[] = {u"-1", u"", u"SUN", u"TALL", u"MENUBAR"};
    for (std::int16_t tab = 0; tab < count; ++tab) {
        control.State.Tabs(tab).Ico = keys[dice.From(0, 4)];
        control.State.Tabs(tab).Enable = dice.Once(3) ? False : True;
    }
}

// A control with the icons that the looks name; its skin's pieces are of unequal heights, half of them unusual.
struct ChanceControl : SkinnedControl {
    explicit ChanceControl(Dice& dice) : SkinnedControl(dice.Seed()) {
        if (dice.Once(2)) CutUnusualPieces(dice.Seed());
        AddButtons();
        AddIcon(u"SUN", RandomIcon(16, 16, dice.Seed()));
        AddIcon(u"TALL", RandomIcon(6, 20, dice.Seed()));
    }
};

// Hands a painted control in one random state after the other to the law: a few skins, each in many states.
template <class Law>
void ForRandomStates(Law law) {
    constexpr int Skins = 100, StatesOfEach = 20;
    std::random_device device;
    for (int skin = 0; skin < Skins; ++skin) {
        const std::uint32_t seed = device();
        CAPTURE(seed);
        Dice dice(seed);
        ChanceControl control(dice);
        for (int state = 0; state < StatesOfEach; ++state) {
            CAPTURE(state);
            control.SetTabCount(dice.From(0, 12));
            Shuffle(control, dice);
            ShuffleLooks(control, dice);
            control.RepaintAll();
            law(control, dice);
        }
    }
}

// The part of a bar's room that no later bar is painted over: these begin with their slots, or with a trailing piece that
// is longer than its bar.
RECT FreeOfLaterBars(const SkinnedControl& control, std::int16_t tab) {
    const ControlState& state = control.State;
    const PropertyValues& p = state.Properties;
    const bool isLast = tab == state.Layout.FirstVisibleTab + state.Layout.VisibleBarCount - 1;
    if (isLast) return control.Room(tab);
    std::int32_t widest = 0;
    for (std::int32_t i = RightPic0; i < RLeftTopPic; ++i)
        widest = std::max(widest, state.SkinRects[i].Width);
    const std::int32_t length = p.TabBorder ? p.BarWidth - p.TabToTab : p.BarWidth;
    RECT room = control.Slot(tab);
    (state.Layout.IsHorizontal ? room.right : room.bottom) -= std::max(widest - length, 0);
    return room;
}

// How many pixels changed where no point hits.
template <class Hits>
int ChangedOutside(const Pixels& before, const Pixels& after, Hits hits) {
    int outside = 0;
    for (std::int32_t y = 0; y < after.Height; ++y)
        for (std::int32_t x = 0; x < after.Width; ++x)
            if (after.At(x, y) != before.At(x, y) && !hits(static_cast<float>(x), static_cast<float>(y)))
                ++outside;
    return outside;
}

} // namespace

TEST_CASE("full = partial = twice = plain loops, over random states with decorations") {
    ForRandomStates([](SkinnedControl& control, Dice& dice) {
        const Pixels all = control.Shown();
        REQUIRE(Difference(all, control.Expected()) == "same");
        control.RepaintAll();
        REQUIRE(Difference(control.Shown(), all) == "same");
        ShuffleLooks(control, dice);
        control.RedrawBars();
        const Pixels bars = control.Shown();
        REQUIRE(Difference(bars, control.Expected()) == "same");
        control.RedrawBars();
        REQUIRE(Difference(control.Shown(), bars) == "same");
    });
}

TEST_CASE(
    "after a change of one tab's icon, redrawing its bar equals a full repaint and hits that bar only") {
    ForRandomStates([](SkinnedControl& control, Dice& dice) {
        const LayoutCache& layout = control.State.Layout;
        if (layout.VisibleBarCount < 1) return;
        const std::int16_t slot = dice.From(0, layout.VisibleBarCount - 1);
        const auto tab = static_cast<std::int16_t>(layout.FirstVisibleTab + slot);
        const Pixels before = control.Shown();
        TabRecord& record = control.State.Tabs(tab);
        record.Ico = dice.Once(2) ? u"SUN" : u"TALL";
        record.Enable = dice.Once(2) ? False : True;
        control.Driver.RedrawBar(tab, control.State.StateOf(tab));
        const Pixels after = control.Shown();
        const LayoutRect strip = layout.BarStripRect;
        const RECT room = control.Room(tab);
        const auto hits = [&](float x, float y) {
            if (control.State.Properties.TabToTab < 0) // reaches under the bars behind it
                return PtInRect(&room, {static_cast<LONG>(x), static_cast<LONG>(y)}) != FALSE;
            return PointInRect(x, y, strip) &&
                   BarSlotAt(x - float(strip.Left), y - float(strip.Top), control.State) == slot;
        };
        REQUIRE(ChangedOutside(before, after, hits) == 0);
        control.RepaintAll();
        REQUIRE(Difference(after, control.Shown()) == "same");
    });
}

TEST_CASE("in a control that is longer than the reserve the row buttons lie wholly inside, in their order") {
    ForRandomStates([](SkinnedControl& control, Dice& dice) {
        ControlState& state = control.State;
        PropertyValues& p = state.Properties;
        p.NavBtnXjust = p.NavBtnYjust = 0;
        p.TabPos = dice.From(WindowLeft, WindowBottom);
        const bool vertical = p.TabPos == WindowLeft || p.TabPos == WindowRight;
        const std::int32_t length = dice.From(34, 200); // the reserve is 31
        control.Host.Resize(vertical ? 150 : length, vertical ? length : 150);
        control.RepaintAll();
        const ButtonRects rects = NavButtonRects(state);
        for (const LayoutRect& rect : {rects.Previous, rects.Next, rects.Menu}) {
            CAPTURE(rect.Left);
            CAPTURE(rect.Top);
            REQUIRE(rect.Left >= 0);
            REQUIRE(rect.Top >= 0);
            REQUIRE(rect.Right < (vertical ? 150 : length));
            REQUIRE(rect.Bottom < (vertical ? length : 150));
        }
        REQUIRE((vertical ? rects.Next.Top - rects.Previous.Bottom
                          : rects.Next.Left - rects.Previous.Right) == 1);
        const std::int32_t gap =
            vertical ? rects.Menu.Top - rects.Next.Bottom : rects.Menu.Left - rects.Next.Right;
        REQUIRE(gap >= 1);
        REQUIRE(gap <= 3);
    });
}

TEST_CASE("every painted pixel of a button hits that button, and releasing it leaves no trace") {
    ForRandomStates([](SkinnedControl& control, Dice&) {
        const Pixels released = control.Shown();
        const ButtonRects rects = NavButtonRects(control.State);
        const auto press = [&](auto draw, const LayoutRect& rect) {
            (control.Decorations.*draw)(rect.Left, rect.Top, True);
            const auto hits = [&](float x, float y) { return PointInRect(x, y, rect); };
            REQUIRE(ChangedOutside(released, control.Shown(), hits) == 0);
            control.Decorations.DrawNavButtons();
            REQUIRE(Difference(control.Shown(), released) == "same");
        };
        press(&Decorations::DrawPrevButton, rects.Previous);
        press(&Decorations::DrawNextButton, rects.Next);
        press(&Decorations::DrawMenuButton, rects.Menu);
    });
}

TEST_CASE("every pixel that a hovered close button lights up hits it, and leaving it leaves no trace") {
    ForRandomStates([](SkinnedControl& control, Dice& dice) {
        const LayoutCache& layout = control.State.Layout;
        if (layout.VisibleBarCount < 1) return;
        const auto slot = dice.From(0, layout.VisibleBarCount - 1);
        const auto tab = static_cast<std::int16_t>(layout.FirstVisibleTab + slot);
        const Pixels plain = control.Shown();
        const LayoutRect button = CloseButtonRect(control.State, slot);
        const RECT free = FreeOfLaterBars(control, tab);
        std::uint8_t look = 1, flag = 3;
        control.Decorations.RedrawCloseButton(tab, look, flag);
        const auto hits = [&](float x, float y) {
            return PointInRect(x, y, button) && PtInRect(&free, {static_cast<LONG>(x), static_cast<LONG>(y)});
        };
        const Pixels hovered = control.Shown();
        REQUIRE(ChangedOutside(plain, hovered, hits) == 0);
        const Pixels expected = control.Expected(tab);
        const SIZE size = {free.right - free.left, free.bottom - free.top};
        REQUIRE(hovered.Cut(free.left, free.top, size.cx, size.cy) ==
                expected.Cut(free.left, free.top, size.cx, size.cy));
        look = flag = 0;
        control.Decorations.RedrawCloseButton(tab, look, flag);
        REQUIRE(Difference(control.Shown(), plain) == "same");
    });
}

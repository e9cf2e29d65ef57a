// The laws of painting, each over many random states. A failure prints the seed of its state.
#include <doctest/doctest.h>

#include <algorithm>
#include <random>

#include "platform/Shortage.h"
#include "render/BarGeometry.h"
#include "tests/render/PaintedControl.h"

using namespace vantik;
using namespace vantik::test;

namespace {

constexpr int States = 2000;

template <class Law>
void ForRandomStates(Law law) {
    std::random_device device;
    for (int i = 0; i < States; ++i) {
        const std::uint32_t seed = device();
        CAPTURE(seed);
        RandomControl random(seed);
        law(random, random.Painted);
    }
}

// The strip, and behind its far end what bars are longer than their slots.
RECT RowOf(const ControlState& state) {
    const LayoutRect& strip = state.Layout.BarStripRect;
    RECT row = {strip.Left, strip.Top, strip.Right, strip.Bottom};
    const std::int16_t gap = state.Properties.TabToTab;
    if (gap < 0) (state.Layout.IsHorizontal ? row.right : row.bottom) -= gap;
    return row;
}

Pixels Row(const PaintedControl& painted) {
    const RECT r = RowOf(painted.State);
    return painted.Read().Cut(r.left, r.top, r.right - r.left, r.bottom - r.top);
}

// How far along the strip the bar of a slot may reach, from its slot's leading edge.
struct Reach {
    std::int32_t From, To;
};
Reach ReachOf(const ControlState& state) {
    const PropertyValues& p = state.Properties;
    const std::int32_t length = p.TabBorder == True ? p.BarWidth - p.TabToTab : p.BarWidth;
    Reach reach = {0, std::max<std::int32_t>(p.BarWidth, p.BarWidth - p.TabToTab)};
    for (std::int32_t s = 0; s < 3; ++s) {
        for (const std::int32_t trailing : {RightPic0 + s, Line0 + s})
            reach.From = std::min(reach.From, length - state.SkinRects[trailing].Width);
        reach.To = std::max(reach.To, state.SkinRects[LeftPic0 + s].Width);
    }
    return reach;
}

} // namespace

TEST_CASE("painting that lacks nothing is not taken for one that has to be repeated") {
    ForRandomStates([](RandomControl&, PaintedControl& painted) {
        const unsigned before = ShortagesSoFar();
        painted.Driver.RepaintAll();
        CHECK(ShortagesSoFar() == before);
    });
}

TEST_CASE("a full repaint paints what the loops paint") {
    ForRandomStates([](RandomControl& random, PaintedControl& painted) {
        random.RandomTabs(false);
        painted.Driver.RepaintAll();
        REQUIRE(Difference(painted.Read(), painted.Expected()) == "same");
    });
}

TEST_CASE("painting twice gives the same pixels as once") {
    ForRandomStates([](RandomControl& random, PaintedControl& painted) {
        random.RandomTabs(true);
        painted.Driver.RepaintAll();
        const Pixels once = painted.Read();
        painted.Driver.RedrawBars();
        REQUIRE(Difference(painted.Read(), once) == "same");
        painted.Driver.RepaintFrame();
        painted.Driver.RedrawBars();
        REQUIRE(Difference(painted.Read(), once) == "same");
        painted.Driver.RepaintAll();
        REQUIRE(Difference(painted.Read(), once) == "same");
    });
}

TEST_CASE("after any change of looks, redrawing the bars equals a full repaint") {
    ForRandomStates([](RandomControl& random, PaintedControl& painted) {
        random.RandomTabs(true);
        painted.Decorations.Paints = true;
        painted.Driver.RepaintAll();
        random.ChangeLooks();
        painted.Driver.RedrawBars();
        const Pixels partial = painted.Read();
        painted.Driver.RepaintAll();
        REQUIRE(Difference(partial, painted.Read()) == "same");
    });
}

TEST_CASE("after a change of one tab's looks, redrawing its bar equals a full repaint") {
    ForRandomStates([](RandomControl& random, PaintedControl& painted) {
        random.RandomTabs(true);
        painted.Decorations.Paints = true;
        painted.Driver.RepaintAll();
        const std::int16_t count = painted.State.Properties.TabCount;
        if (count == 0) return;
        const std::int16_t tab = random.Small(0, count - 1);
        painted.State.Tabs(tab).Caption = u"New";
        painted.State.Tabs(tab).Enable = random.Chance(50) ? True : False;
        painted.Driver.RedrawBar(tab, painted.State.StateOf(tab));
        const Pixels partial = painted.Read();
        painted.Driver.RepaintAll();
        REQUIRE(Difference(partial, painted.Read()) == "same");
    });
}

TEST_CASE("redrawing the bars paints nothing outside the strip and what the last bar reaches behind it") {
    ForRandomStates([](RandomControl& random, PaintedControl& painted) {
        random.RandomTabs(true);
        painted.Decorations.Paints = true;
        painted.Driver.RepaintAll();
        Pixels expected = painted.Read();
        for (std::uint32_t& value : expected.Values) value ^= 0x00FF00; // so that any painting shows
        painted.Host.Write(expected);
        painted.Driver.RedrawBars();
        const Pixels after = painted.Read();
        const RECT row = RowOf(painted.State);
        for (std::int32_t y = row.top; y < row.bottom; ++y)
            for (std::int32_t x = row.left; x < row.right; ++x) expected.Set(x, y, after.At(x, y));
        REQUIRE(Difference(after, expected) == "same");
    });
}

TEST_CASE(
    "the row on the bottom is the top strip flipped, the left one is transposed, the right one turned "
    "clockwise") {
    ForRandomStates([](RandomControl& random, PaintedControl& painted) {
        ControlState& state = painted.State;
        painted.Host.Resize(220, 220);
        painted.Surfaces.Picture = nullptr;
        painted.MakeSkin(random.Random(), {.PlainFrame = true, .Unusual = random.Chance(40)});
        random.RandomTabs(false);
        state.Properties.TabBarPos = TabMiddle;
        state.Properties.FrameDist = 0;
        state.Properties.TabBarPosXJust = state.Properties.TabBarPosYJust = 0;

        state.Properties.TabPos = Windowtop;
        painted.Driver.RepaintAll();
        const Pixels top = Row(painted);
        const std::int32_t thickness = top.Height;
        const auto turned = [&](std::int32_t side, auto topPixelOf) {
            state.Properties.TabPos = side;
            painted.Driver.RepaintAll();
            const Pixels row = Row(painted);
            Pixels expected(row.Width, row.Height);
            for (std::int32_t y = 0; y < row.Height; ++y)
                for (std::int32_t x = 0; x < row.Width; ++x) {
                    const POINT from = topPixelOf(x, y);
                    expected.Set(x, y, top.At(from.x, from.y));
                }
            return Difference(row, expected);
        };
        REQUIRE(turned(WindowBottom, [&](int x, int y) { return POINT{x, thickness - 1 - y}; }) == "same");
        REQUIRE(turned(WindowLeft, [&](int x, int y) { return POINT{y, x}; }) == "same");
        REQUIRE(turned(WindowRight, [&](int x, int y) { return POINT{y, thickness - 1 - x}; }) == "same");
    });
}

TEST_CASE("every painted bar pixel hits that bar, or a bar that it reaches under or over") {
    ForRandomStates([](RandomControl& random, PaintedControl& painted) {
        random.RandomTabs(false);
        painted.Driver.RepaintAll();
        ControlState& state = painted.State;
        if (state.Layout.VisibleBarCount < 1) return;
        const Pixels before = painted.Read();
        // In another look: whatever pixel changes belongs to that bar.
        const std::int32_t slot = random.Between(0, state.Layout.VisibleBarCount - 1);
        const auto tab = static_cast<std::int16_t>(state.Layout.FirstVisibleTab + slot);
        painted.Driver.RedrawBar(tab, state.StateOf(tab) == BarNormal ? BarActive : BarNormal);
        const Pixels after = painted.Read();
        const LayoutRect& strip = state.Layout.BarStripRect;
        const RECT row = RowOf(state);
        const Reach reach = ReachOf(state);
        const bool isAlone = reach.From == 0 && reach.To == state.Properties.BarWidth;
        const std::int32_t start = slot * state.Properties.BarWidth;
        int wrong = 0;
        for (std::int32_t y = 0; y < after.Height; ++y)
            for (std::int32_t x = 0; x < after.Width; ++x) {
                if (after.At(x, y) == before.At(x, y)) continue;
                const auto px = static_cast<float>(x), py = static_cast<float>(y);
                const float fromLeft = px - float(strip.Left), fromTop = py - float(strip.Top);
                const std::int32_t along = state.Layout.IsHorizontal ? x - strip.Left : y - strip.Top;
                const bool hits = PointInRect(px, py, strip) && BarSlotAt(fromLeft, fromTop, state) == slot;
                const bool reaches =
                    PtInRect(&row, {x, y}) && along >= start + reach.From && along < start + reach.To;
                if (isAlone ? !hits : !reaches) ++wrong;
            }
        REQUIRE(wrong == 0);
    });
}

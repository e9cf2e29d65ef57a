// The laws of painting, each over many random states. A failure prints the seed of its state.
#include <doctest/doctest.h>

#include <random>

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

Pixels Strip(const PaintedControl& painted) {
    const LayoutRect& r = painted.State.Layout.BarStripRect;
    return painted.Read().Cut(r.Left, r.Top, r.Width, r.Height);
}

} // namespace

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

TEST_CASE("redrawing the bars paints nothing outside the strip") {
    ForRandomStates([](RandomControl& random, PaintedControl& painted) {
        random.RandomTabs(true);
        painted.Decorations.Paints = true;
        painted.Driver.RepaintAll();
        Pixels expected = painted.Read();
        for (std::uint32_t& value : expected.Values) value ^= 0x00FF00; // so that any painting shows
        painted.Host.Write(expected);
        painted.Driver.RedrawBars();
        const Pixels after = painted.Read();
        const LayoutRect& strip = painted.State.Layout.BarStripRect;
        for (std::int32_t y = strip.Top; y < strip.Bottom; ++y)
            for (std::int32_t x = strip.Left; x < strip.Right; ++x) expected.Set(x, y, after.At(x, y));
        REQUIRE(Difference(after, expected) == "same");
    });
}

TEST_CASE(
    "the bottom strip is the top strip flipped, the left one is transposed, the right one turned clockwise") {
    ForRandomStates([](RandomControl& random, PaintedControl& painted) {
        ControlState& state = painted.State;
        painted.Host.Resize(220, 220);
        painted.Surfaces.Picture = nullptr;
        painted.MakeSkin(random.Random(), {.PlainFrame = true});
        random.RandomTabs(false);
        state.Properties.TabBarPos = TabMiddle;
        state.Properties.FrameDist = 0;
        state.Properties.TabBarPosXJust = state.Properties.TabBarPosYJust = 0;

        state.Properties.TabPos = Windowtop;
        painted.Driver.RepaintAll();
        const Pixels top = Strip(painted);
        const std::int32_t thickness = top.Height;
        const auto turned = [&](std::int32_t side, auto topPixelOf) {
            state.Properties.TabPos = side;
            painted.Driver.RepaintAll();
            const Pixels strip = Strip(painted);
            Pixels expected(strip.Width, strip.Height);
            for (std::int32_t y = 0; y < strip.Height; ++y)
                for (std::int32_t x = 0; x < strip.Width; ++x) {
                    const POINT from = topPixelOf(x, y);
                    expected.Set(x, y, top.At(from.x, from.y));
                }
            return Difference(strip, expected);
        };
        REQUIRE(turned(WindowBottom, [&](int x, int y) { return POINT{x, thickness - 1 - y}; }) == "same");
        REQUIRE(turned(WindowLeft, [&](int x, int y) { return POINT{y, x}; }) == "same");
        REQUIRE(turned(WindowRight, [&](int x, int y) { return POINT{y, thickness - 1 - x}; }) == "same");
    });
}

TEST_CASE("every painted bar pixel hits that bar") {
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
        int wrong = 0;
        for (std::int32_t y = 0; y < after.Height; ++y)
            for (std::int32_t x = 0; x < after.Width; ++x) {
                if (after.At(x, y) == before.At(x, y)) continue;
                const auto px = static_cast<float>(x), py = static_cast<float>(y);
                if (!PointInRect(px, py, strip) ||
                    BarSlotAt(px - float(strip.Left), py - float(strip.Top), state) != slot)
                    ++wrong;
            }
        REQUIRE(wrong == 0);
    });
}

// Laws of painting with decorations, over random states.
#include <doctest/doctest.h>

#include <random>

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

void Shuffle(SkinnedControl& control, Dice& dice) {
    PropertyValues& p = control.State.Properties;
    p.TabPos = dice.From(WindowLeft, WindowBottom);
    p.TabBarPos = dice.From(TabLeft, TabCustom);
    p.BarWidth = dice.From(14, 70);
    p.TabToTab = dice.Once(3) ? dice.From(-2, 6) : std::int16_t{0};
    p.TabBorder = dice.Once(2) ? True : False;
    p.FrameDist = dice.From(0, 4);
    p.DelButton = dice.Once(4) ? False : True;
    p.IcoXjust = dice.Once(3) ? dice.From(-9, 9) : std::int16_t{0};
    p.IcoYjust = dice.Once(3) ? dice.From(-9, 9) : std::int16_t{0};
    p.NavBtnXjust = dice.Once(3) ? dice.From(-12, 9) : std::int16_t{0};
    p.NavBtnYjust = dice.Once(3) ? dice.From(-12, 9) : std::int16_t{0};
    control.State.Layout.FirstVisibleTab = dice.From(0, 3);
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

} // namespace

TEST_CASE("full = partial = twice = plain loops, over random states with decorations") {
    for (std::uint32_t seed = 1; seed <= 300; ++seed) {
        CAPTURE(seed);
        Dice dice(seed);
        SkinnedControl control(dice.Seed());
        control.AddButtons();
        control.AddIcon(u"SUN", RandomIcon(16, 16, 31));
        control.AddIcon(u"TALL", RandomIcon(6, 20, 32));
        control.SetTabCount(dice.From(1, 9));
        Shuffle(control, dice);
        for (int round = 0; round < 3; ++round) {
            ShuffleLooks(control, dice);
            control.RepaintAll();
            const Pixels all = control.Shown();
            REQUIRE(Difference(all, control.Expected()) == "same");
            control.RepaintAll();
            REQUIRE(Difference(control.Shown(), all) == "same");
            ShuffleLooks(control, dice);
            control.RedrawBars();
            REQUIRE(Difference(control.Shown(), control.Expected()) == "same");
        }
    }
}

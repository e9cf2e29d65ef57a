// Repaints that wait until somebody looks must not be told from repaints at once.
#include <doctest/doctest.h>

#include <random>

#include "tests/RunTimeErrors.h"
#include "tests/control/RandomActions.h"

using namespace vantik;
using namespace vantik::test;

TEST_CASE("nobody who looks now and then can tell merged repaints from eager ones") {
    constexpr int Pairs = 50, ActionsPerPair = 260, LooksAtLeast = 2000;
    std::random_device device;
    int looks = 0;
    for (int pair = 0; pair < Pairs; ++pair) {
        const std::uint32_t seed = device();
        CAPTURE(seed);
        std::mt19937 chance(seed);
        DrivenControl merged(8), eager(8);
        for (int i = 0; i < ActionsPerPair; ++i) {
            const RandomAction action(chance);
            CAPTURE(i);
            CAPTURE(action.Kind());
            action.DoTo(merged);
            action.DoTo(eager);
            eager.Control.UserControl_Paint();
            if (chance() % 6) continue;
            ++looks;
            merged.Control.UserControl_Paint();
            REQUIRE(Difference(merged.Host.Read(), eager.Host.Read()) == "same");
        }
        REQUIRE(merged.Log() == eager.Log());
    }
    CHECK(looks >= LooksAtLeast); // about 2,170 are to be expected
}

TEST_CASE("a thousand insertions paint once") {
    DrivenControl f(1);
    f.Control.UserControl_Paint();
    f.Host.TakeLog();
    for (int i = 0; i < 1000; ++i) f.Fixture.Insert(0);
    f.Control.UserControl_Paint();
    const std::string log = f.Host.TakeLog();
    CHECK(log.find("Cls") != std::string::npos);
    CHECK(log.find("Cls") == log.rfind("Cls"));
}

TEST_CASE("a caption set without refresh shows at the next repaint, not at one that waited") {
    DrivenControl f(3);
    f.Control.ActiveTab(1); // waits
    f.Control.SetBarCaption(1, u"Changed", False);
    f.Control.UserControl_Paint();
    const Pixels before = f.Host.Read();
    f.Control.RedrawBars();
    f.Control.UserControl_Paint();
    CHECK(Difference(f.Host.Read(), before) != "same");
}

TEST_CASE("a pointer move after a switch does not colour the bar that waits to be painted") {
    DrivenControl f(3), still(3);
    f.Control.ActiveTab(1);
    f.MoveTo(f.Bar(2)); // a move repaints no bar
    still.Control.ActiveTab(1);
    f.Control.UserControl_Paint();
    still.Control.UserControl_Paint();
    CHECK(Difference(f.Host.Read(), still.Host.Read()) == "same");
}

TEST_CASE("redrawing the bars of a control without tabs tells the window nothing") {
    DrivenControl f(3);
    f.Control.UserControl_Paint();
    f.Control.UserControl_InitProperties(); // no tabs any more; the strip stays where it was
    f.Host.TakeInvalidated();
    REQUIRE(f.State().Layout.BarStripRect.Width > 0);
    f.Control.RedrawBars();
    CHECK(f.Host.TakeInvalidated() == "");
    f.Control.UserControl_Paint();
    CHECK(f.Host.TakeInvalidated() == "");
}

TEST_CASE("a repaint that fails has painted what comes before its error, over what waited") {
    DrivenControl f(3);
    f.Control.UserControl_Paint();
    const std::uint32_t background = f.Host.Read().At(200, 150);
    f.Control.ActiveTab(1); // waits
    CHECK(NumberRaisedBy([&] { f.Control.Let<std::int16_t>(Property::BarWidth, 0); }) == 11);
    CHECK(Difference(f.Host.Read(), Pixels(440, 300, background)) == "same");
    f.Control.UserControl_Paint();
    CHECK(Difference(f.Host.Read(), Pixels(440, 300, background)) == "same");
    CHECK(f.Control.Get<std::int16_t>(Property::BarWidth) == 0);
    CHECK(f.Log() == "PropertyChanged ActiveTab; PropertyChanged BarWidth");

    f.Control.Let<std::int16_t>(Property::BarWidth, 60);
    f.Control.UserControl_Paint();
    DrivenControl other(3);
    other.Control.ActiveTab(1);
    other.Control.UserControl_Paint();
    CHECK(Difference(f.Host.Read(), other.Host.Read()) == "same");
}

// Repaints that wait until somebody looks must not be told from repaints at once.
#include <doctest/doctest.h>

#include <random>

#include "tests/RunTimeErrors.h"
#include "tests/control/RandomActions.h"

using namespace vantik;
using namespace vantik::test;

namespace {

// Answers the events by chance: does something to the control, changes the argument that came by reference, or both in
// either order. Two of the same seed do the same, as long as the controls behave alike.
class RandomHandlers {
public:
    RandomHandlers(DrivenControl& control, std::uint32_t seed) : control_(control), chance_(seed) {
        auto& on = control.Host.On;
        on.PreTabDown = on.NextTabDown = on.TabMove = [this](std::int16_t& index) { Answer(index); };
        on.TabClose = on.TabMove;
        on.TabDown = [this](std::int16_t& index, std::int16_t&) { Answer(index); };
        on.DownBarDown = [this] {
            std::int16_t none = 0;
            Answer(none);
        };
    }

    int Changes = 0; // of arguments, after something was done

private:
    void Answer(std::int16_t& index) {
        if (isAnswering_) return; // an event set off by an answer
        isAnswering_ = true;
        const bool first = Act(), changed = chance_() % 2;
        if (changed) index = static_cast<std::int16_t>(chance_() % 9);
        Changes += first && changed;
        Act();
        isAnswering_ = false;
    }

    bool Act() {
        if (chance_() % 2) return false;
        const RandomAction action(chance_);
        action.DoTo(control_);
        if (control_.Host.OnCall) control_.Host.OnCall();
        return true;
    }

    DrivenControl& control_;
    std::mt19937 chance_;
    bool isAnswering_ = false;
};

// The host looks whenever it is called, so that nothing waits for long.
void LookAlways(DrivenControl& control) {
    control.Host.OnDraw = control.Host.OnCall = [&control] { control.Control.UserControl_Paint(); };
}

} // namespace

TEST_CASE("nobody who looks now and then can tell merged repaints from eager ones, whatever handlers do") {
    constexpr int Pairs = 50, ActionsPerPair = 260, LooksAtLeast = 2000, ChangesAtLeast = 300;
    std::random_device device;
    int looks = 0, changes = 0;
    for (int pair = 0; pair < Pairs; ++pair) {
        const std::uint32_t seed = device();
        CAPTURE(seed);
        std::mt19937 chance(seed);
        DrivenControl merged(8), eager(8);
        LookAlways(eager);
        RandomHandlers handlers(merged, seed), eagerHandlers(eager, seed);
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
        changes += handlers.Changes;
    }
    CHECK(looks >= LooksAtLeast); // about 2,170 are to be expected
    CHECK(changes >= ChangesAtLeast);
}

TEST_CASE("what a handler had repainted shows the argument as it was then") {
    constexpr struct {
        const char* Event;
        void (*Raise)(DrivenControl&);
    } causes[] = {
        {"TabMove", [](DrivenControl& f) { f.MoveTo(f.Bar(1)); }},
        {"TabDown", [](DrivenControl& f) { f.Click(f.Bar(2)); }},
        {"NextTabDown", [](DrivenControl& f) { f.Click(f.Buttons().Next); }},
        {"PreTabDown",
         [](DrivenControl& f) {
             f.Click(f.Buttons().Next);
             f.Click(f.Buttons().Previous);
         }},
    };
    constexpr void (VantikFrameTab::*repaints[])() = {&VantikFrameTab::RepaintAll,
                                                      &VantikFrameTab::RedrawBars};
    for (const auto& cause : causes)
        for (const auto repaint : repaints) {
            CAPTURE(cause.Event);
            DrivenControl merged(20), eager(20);
            LookAlways(eager);
            for (DrivenControl* f : {&merged, &eager}) {
                const auto handler = [f, repaint](std::int16_t& argument) {
                    (f->Control.*repaint)();
                    if (f->Host.OnCall) f->Host.OnCall();
                    argument = 4; // shows at the next repaint
                    if (f->Control.ActiveTab() == 0) f->Control.SetBarIco(0, u"sun");
                };
                f->Host.On.TabMove = f->Host.On.NextTabDown = f->Host.On.PreTabDown = handler;
                f->Host.On.TabDown = [handler](std::int16_t& index, std::int16_t&) { handler(index); };
                cause.Raise(*f);
                f->Control.UserControl_Paint();
            }
            CHECK(Difference(merged.Host.Read(), eager.Host.Read()) == "same");
        }
}

TEST_CASE("a thousand insertions paint once, inside a handler, too") {
    DrivenControl f(1);
    f.Control.UserControl_Paint();
    f.Host.TakeLog();
    const auto insert = [&f](std::int16_t& index) {
        for (int i = 0; i < 1000; ++i) f.Fixture.Insert(0);
        index = 1;
    };
    SUBCASE("from outside") {
        std::int16_t none = 0;
        insert(none);
    }
    SUBCASE("inside a handler that changes its argument") {
        f.Host.On.TabMove = insert;
        f.MoveTo(f.Bar(0));
    }
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

TEST_CASE("a button that is pressed while a full repaint waits looks so until it is let go") {
    DrivenControl f(40);
    const LayoutRect menu = f.Buttons().Menu;
    const auto button = [&] {
        f.Control.UserControl_Paint();
        return f.Host.Read().Cut(menu.Left, menu.Top, menu.Width, menu.Height);
    };
    const Pixels released = button();
    f.Host.On.TabDown = [&f](std::int16_t&, std::int16_t&) { f.Control.RepaintAll(); };
    f.MoveTo(f.Bar(2)); // the press switches to this tab, wherever it lands
    const auto x = static_cast<float>((menu.Left + 1) * 15), y = static_cast<float>((menu.Top + 1) * 15);
    f.Control.UserControl_MouseDown(1, 0, x, y);
    CHECK(f.Control.ActiveTab() == 2);
    CHECK(Difference(button(), released) != "same");
    f.Control.UserControl_MouseUp(1, 0, x, y);
    CHECK(Difference(button(), released) == "same");
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

TEST_CASE("a full repaint tells of too many tabs behind the row at once, not when somebody looks") {
    DrivenControl f(32767);
    f.Control.UserControl_Paint();
    f.Host.Resize(40, 300); // too small for the buttons: fewer bars fit than none
    f.Host.TakeLog();
    CHECK(NumberRaisedBy([&] { f.Control.UserControl_Resize(); }) == 6);
    CHECK(f.State().Layout.VisibleBarCount < 0);
    CHECK(f.Host.TakeLog() == "Cls");
    f.Control.UserControl_Paint();
    CHECK(f.Host.TakeLog() == "");
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

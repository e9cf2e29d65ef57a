#include <doctest/doctest.h>

#include <functional>

#include "tests/RunTimeErrors.h"
#include "tests/control/DrivenControl.h"

using namespace vantik;
using namespace vantik::test;

TEST_CASE("a press on a bar raises TabDown with the button and switches to the tab") {
    DrivenControl f(3);
    f.Fixture.AddChild(u"child", 300);
    f.Click(f.Bar(2), 2);
    CHECK(f.Log() == "TabMove 2; TabDown 2 2");
    CHECK(f.Control.ActiveTab() == 2);
    CHECK(f.Fixture.Lefts() == "20300");
}

TEST_CASE("a press on the active tab's bar does nothing, and the buttons are not tested either") {
    DrivenControl f(3);
    f.MoveTo(f.Bar(0));
    f.Log();
    f.PressAt(f.Buttons().Menu); // the press acts on the hover state, wherever it lands
    CHECK(f.Log() == "");
}

TEST_CASE("the handler of TabDown may send the switch elsewhere") {
    DrivenControl f(3);
    f.Host.On.TabDown = [](std::int16_t& index, std::int16_t&) { index = 1; };
    f.Click(f.Bar(2));
    CHECK(f.Control.ActiveTab() == 1);
    CHECK(f.State().HoverTab == 1); // the variable is the hover state itself
}

TEST_CASE("a user's switch to a disabled tab moves no child and still makes it active") {
    DrivenControl f(3);
    f.Control.SetBarEnable(2, False);
    f.Fixture.AddChild(u"child", 300);
    f.Click(f.Bar(2));
    CHECK(f.Control.ActiveTab() == 2);
    CHECK(f.Fixture.Lefts() == "300");
}

TEST_CASE("a user's switch does not mark ActiveTab changed") {
    DrivenControl f(3);
    f.Click(f.Bar(1));
    CHECK(f.Log() == "TabMove 1; TabDown 1 1");
}

TEST_CASE("moving from one bar to the next raises TabMove once, within the same bar nothing") {
    DrivenControl f(3);
    f.MoveTo(f.Bar(0));
    f.MoveTo(f.Bar(1));
    const LayoutRect bar = f.Bar(1);
    f.Move(bar.Left + 1, bar.Top + 1);
    CHECK(f.Log() == "TabMove 0; TabMove 1");
}

TEST_CASE("moving from one bar to the next repaints no bar; the next repaint shows the hovered one") {
    DrivenControl f(3);
    f.MoveTo(f.Bar(1));
    f.Control.RedrawBars();
    f.Control.UserControl_Paint();
    const Pixels hovered = f.Host.Read();
    f.MoveTo(f.Bar(2));
    f.Control.UserControl_Paint();
    CHECK(Difference(f.Host.Read(), hovered) == "same");
    f.Control.RedrawBars();
    f.Control.UserControl_Paint();
    CHECK(Difference(f.Host.Read(), hovered) != "same");
}

TEST_CASE("leaving the strip ends hovering without any event") {
    DrivenControl f(3);
    f.MoveTo(f.Bar(1));
    f.Log();
    f.Move(200, 200);
    CHECK(f.Log() == "");
    CHECK(f.State().HoverTab == -1);
}

TEST_CASE("the point at exactly k x BarWidth along the strip belongs to slot k") {
    DrivenControl f(3);
    const LayoutRect strip = f.State().Layout.BarStripRect;
    f.Move(strip.Left + 60, strip.Top);
    CHECK(f.State().HoverTab == 1);
    f.Move(strip.Left + 59, strip.Top);
    CHECK(f.State().HoverTab == 0);
}

TEST_CASE("the strip's far edge belongs to the strip, where the bar behind the last one would be") {
    DrivenControl f(3); // required: all four bounds are inside
    f.Fixture.AddChild(u"child", 300);
    const LayoutRect strip = f.State().Layout.BarStripRect;
    REQUIRE(strip.Right - strip.Left == 3 * 60);
    f.Press(strip.Right, strip.Bottom);
    CHECK(f.Log() == "TabMove 3; TabDown 3 1");
    CHECK(f.Control.ActiveTab() == 3);
    CHECK(f.Fixture.Lefts() == "300"); // there is no tab that they could belong to
    f.Move(strip.Right + 1, strip.Bottom);
    CHECK(f.State().HoverTab == -1);
}

TEST_CASE("a strip without bars still has the pixel where it begins") {
    DrivenControl f(3);
    f.Control.UserControl_InitProperties();
    f.Control.RepaintAll();
    const LayoutRect strip = f.State().Layout.BarStripRect;
    REQUIRE(strip.Width == 0);
    f.Log();
    f.Move(strip.Left, strip.Top);
    CHECK(f.Log() == "TabMove 0");
    f.Move(strip.Left + 1, strip.Top);
    CHECK(f.State().HoverTab == -1);
}

TEST_CASE("every move outside the strip lets the pointer go, none inside") {
    DrivenControl f(3);
    f.MoveTo(f.Bar(0));
    f.MoveTo(f.Close(1));
    CHECK(f.Host.CapturesReleased == 0);
    f.Move(200, 200);
    CHECK(f.Host.CapturesReleased == 1);
    f.Move(201, 200);
    CHECK(f.Host.CapturesReleased == 2);
}

TEST_CASE("across and down, a position is whole twips divided by a whole factor of its own") {
    DrivenControl f(3);
    f.Host.PerPixelX = 7.5; // rounds to 8
    f.Host.PerPixelY = 6.6; // to 7
    const LayoutRect strip = f.State().Layout.BarStripRect;
    const auto x = [](std::int32_t pixels) { return static_cast<float>(pixels) * 8 - 0.4f; };
    const auto y = [](std::int32_t pixels) { return static_cast<float>(pixels) * 7 - 0.4f; };
    f.Control.UserControl_MouseMove(0, 0, x(strip.Left + 60), y(strip.Bottom));
    CHECK(f.State().HoverTab == 1);
    f.Control.UserControl_MouseMove(0, 0, x(strip.Left + 60), y(strip.Bottom + 1));
    CHECK(f.State().HoverTab == -1);
    const LayoutRect menu = f.Buttons().Menu;
    f.Log();
    f.Control.UserControl_MouseDown(1, 0, x(menu.Left), y(menu.Bottom + 1));
    CHECK(f.Log() == "");
    f.Control.UserControl_MouseDown(1, 0, x(menu.Left), y(menu.Bottom));
    CHECK(f.Log() == "DownBarDown");
}

TEST_CASE("a press on a close button raises TabClose and removes the tab") {
    DrivenControl f(3);
    f.MoveTo(f.Close(1));
    CHECK(f.State().HoverCloseTab == 1);
    f.Click(f.Close(1));
    CHECK(f.Log() == "TabMove 1; TabClose 1; PropertyChanged ActiveTab");
    CHECK(f.Fixture.Captions() == "Tab0 Tab2");
    CHECK(f.State().HoverCloseTab == -1);
}

TEST_CASE("a close button is lit while the pointer is on it, in the look of code 11, and plain after that") {
    const std::function<void(DrivenControl&)> leaves[] = {
        [](DrivenControl& f) { f.Move(200, 200); },     // the strip
        [](DrivenControl& f) { f.MoveTo(f.Bar(1)); },   // the button
        [](DrivenControl& f) { f.MoveTo(f.Bar(2)); },   // the bar
        [](DrivenControl& f) { f.Control.EndHover(); }, // the control
    };
    for (const auto& leave : leaves) {
        DrivenControl f(3);
        f.Control.UserControl_Paint();
        const Pixels plain = f.Host.Read();
        f.MoveTo(f.Close(1));
        CHECK(f.State().StateCode == u"11");
        CHECK(f.State().HoverCloseTab == 1);
        const Pixels lit = f.Host.Read();
        CHECK(Difference(lit, plain) != "same");
        leave(f);
        CHECK(f.State().HoverCloseTab == -1);
        CHECK(Difference(f.Host.Read(), plain) == "same");
    }
}

TEST_CASE("from one close button straight onto another the first stays the one that is lit and pressed") {
    DrivenControl f(4);
    f.Control.UserControl_Paint();
    f.MoveTo(f.Close(1));
    const Pixels lit = f.Host.Read();
    f.MoveTo(f.Close(2));
    CHECK(f.State().HoverCloseTab == 1);
    CHECK(Difference(f.Host.Read(), lit) == "same");
    f.Log();
    f.Click(f.Close(2));
    CHECK(f.Log() == "TabClose 1; PropertyChanged ActiveTab");
    CHECK(f.Fixture.Captions() == "Tab0 Tab2 Tab3");
}

TEST_CASE("a close button that is left for a bar past the last number goes out before the overflow") {
    DrivenControl f(32767);
    f.Host.On.NextTabDown = [](std::int16_t& first) { first = 32767; };
    f.PressAt(f.Buttons().Next);
    REQUIRE(f.State().Layout.FirstVisibleTab == 32767);
    CHECK(NumberRaisedBy([&] { f.Control.RedrawBars(); }) == 6); // behind the first bar, the spare record's
    const Pixels plain = f.Host.Read();
    f.MoveTo(f.Close(0));
    REQUIRE(f.State().HoverCloseTab == 32767);
    CHECK(Difference(f.Host.Read(), plain) != "same");
    f.Log();
    CHECK(NumberRaisedBy([&] { f.MoveTo(f.Bar(1)); }) == 6);
    CHECK(f.State().HoverCloseTab == -1);
    CHECK(f.State().HoverTab == 32767);
    CHECK(f.Log() == "");
    CHECK(Difference(f.Host.Read(), plain) == "same");
}

TEST_CASE("a press that switches or closes tests the buttons beside the row, too") {
    const auto pressMenu = [](DrivenControl& f) { // without a move: the press acts on the hover state
        const LayoutRect menu = f.Buttons().Menu;
        f.Control.UserControl_MouseDown(1, 0, static_cast<float>((menu.Left + 1) * 15),
                                        static_cast<float>((menu.Top + 1) * 15));
    };
    DrivenControl f(40); // the row is full before and after
    f.MoveTo(f.Bar(2));
    f.Log();
    pressMenu(f);
    CHECK(f.Log() == "TabDown 2 1; DownBarDown");
    CHECK(f.Control.ActiveTab() == 2);
    f.MoveTo(f.Close(1));
    f.Log();
    pressMenu(f);
    CHECK(f.Log() == "TabClose 1; PropertyChanged ActiveTab; DownBarDown");
    CHECK(f.Control.TabCount() == 39);
    CHECK(f.State().ButtonPressed == True);
}

TEST_CASE("a TabClose handler that changes the index removes that tab instead") {
    DrivenControl f(3);
    f.Host.On.TabClose = [](std::int16_t& index) { index = 2; };
    f.Click(f.Close(1));
    CHECK(f.Fixture.Captions() == "Tab0 Tab1");
}

TEST_CASE("a press on a close button removes the tab whatever the TabClose handler did") {
    const std::function<void(DrivenControl&)> deeds[] = {
        [](DrivenControl& f) { f.Control.SetBarEnable(1, False); },
        [](DrivenControl& f) { f.Control.ActiveTab(2); },
        [](DrivenControl& f) { f.Control.SetBarCaption(1, u"Keep me", True); },
        [](DrivenControl& f) { f.Control.Let<std::int16_t>(Property::DelButton, False); },
    };
    for (const auto& deed : deeds) {
        DrivenControl f(3);
        f.Host.On.TabClose = [&](std::int16_t&) { deed(f); };
        f.Click(f.Close(1));
        CHECK(f.Fixture.Captions() == "Tab0 Tab2");
    }
}

TEST_CASE("closing the only tab is announced and does nothing") {
    DrivenControl f(1);
    f.Click(f.Close(0));
    CHECK(f.Log() == "TabMove 0; TabClose 0");
    CHECK(f.Fixture.Captions() == "Tab0");
}

TEST_CASE("a press that closes a tab presses no row button that slides under the pointer") {
    for (const std::int32_t side : {WindowLeft, WindowRight, Windowtop, WindowBottom})
        for (const std::int32_t place : {TabLeft, TabMiddle, TabRight}) {
            CAPTURE(side);
            CAPTURE(place);
            DrivenControl f(4);
            f.Control.Let(Property::TabPos, side);
            f.Control.Let(Property::TabBarPos, place);
            const std::int32_t last = f.State().Layout.VisibleBarCount - 1;
            const std::int32_t slot = place == TabRight ? 0 : last; // the bar next to the buttons
            const LayoutRect close = f.Close(slot);
            f.Log();
            f.Click(close);
            CHECK(f.Control.TabCount() == 3);
            const std::string tab = std::to_string(slot);
            CHECK(f.Log() == "TabMove " + tab + "; TabClose " + tab + "; PropertyChanged ActiveTab");
        }
}

TEST_CASE("a press tests the row buttons where they were seen, whatever it did before") {
    DrivenControl f(4);
    f.MoveTo(f.Close(3)); // the press acts on the hover state, wherever it lands
    f.PressAt(f.Buttons().Menu);
    CHECK(f.Log() == "TabMove 3; TabClose 3; PropertyChanged ActiveTab; DownBarDown");

    DrivenControl g(4);
    g.MoveTo(g.Bar(2));
    g.PressAt(g.Buttons().Menu);
    CHECK(g.Log() == "TabMove 2; TabDown 2 1; DownBarDown");
    CHECK(g.Control.ActiveTab() == 2);
}

TEST_CASE("a press on a bar presses no row button that reaches under the bar") {
    DrivenControl f(12);
    f.Control.Let<std::int16_t>(Property::NavBtnXjust, -40); // moves all three towards the row
    const std::int32_t last = f.State().Layout.VisibleBarCount - 1;
    const LayoutRect strip = f.State().Layout.BarStripRect, menu = f.Buttons().Menu;
    REQUIRE(menu.Left < strip.Right);
    REQUIRE(menu.Right > strip.Right);
    f.Log();
    f.Press(menu.Left, menu.Top); // seen there is the last bar
    const std::string tab = std::to_string(last);
    CHECK(f.Log() == "TabMove " + tab + "; TabDown " + tab + " 1");
    f.Press(menu.Right, menu.Top);
    CHECK(f.Log() == "DownBarDown");
}

TEST_CASE("a row button that moved is shown pressed where it lies now") {
    DrivenControl f(4), other(3);
    f.MoveTo(f.Close(3));
    f.PressAt(f.Buttons().Menu);
    other.PressAt(other.Buttons().Menu);
    f.Control.UserControl_Paint();
    other.Control.UserControl_Paint();
    CHECK(Difference(f.Host.Read(), other.Host.Read()) == "same");
}

TEST_CASE("with close buttons off a press at their place selects the tab") {
    DrivenControl f(3);
    f.Control.Let<std::int16_t>(Property::DelButton, False);
    f.Log();
    f.Click(f.Close(1));
    CHECK(f.Control.TabCount() == 3);
    CHECK(f.Control.ActiveTab() == 1);
}

TEST_CASE("the next button scrolls the row on by one and the previous one back") {
    DrivenControl f(40);
    REQUIRE(f.State().Layout.VisibleBarCount < 40);
    f.Click(f.Buttons().Next);
    f.Click(f.Buttons().Next);
    f.Click(f.Buttons().Previous);
    CHECK(f.Log() == "NextTabDown 1; NextTabDown 2; PreTabDown 1");
    CHECK(f.State().Layout.FirstVisibleTab == 1);
    CHECK(f.Control.ActiveTab() == 0);
}

TEST_CASE("a handler of NextTabDown or PreTabDown that looks sees the row where it was scrolled to") {
    DrivenControl f(40);
    const auto row = [&f] {
        f.Control.UserControl_Paint();
        const LayoutRect& strip = f.State().Layout.BarStripRect;
        return f.Host.Read().Cut(strip.Left, strip.Top, strip.Width, strip.Height);
    };
    Pixels seen;
    f.Host.On.NextTabDown = f.Host.On.PreTabDown = [&](std::int16_t&) { seen = row(); };
    const Pixels start = row();
    f.Click(f.Buttons().Next);
    CHECK(Difference(seen, start) != "same");
    CHECK(Difference(seen, row()) == "same");
    f.Click(f.Buttons().Previous);
    CHECK(Difference(seen, start) == "same");
}

TEST_CASE("the previous button drawn greyed neither scrolls nor raises PreTabDown") {
    DrivenControl f(40);
    f.Click(f.Buttons().Previous);
    CHECK(f.Log() == "");
    CHECK(f.State().Layout.FirstVisibleTab == 0);
}

TEST_CASE("the next button drawn greyed at the row's end neither scrolls nor raises NextTabDown") {
    DrivenControl f(3);
    f.Click(f.Buttons().Next);
    CHECK(f.Log() == "");
}

TEST_CASE("the menu button raises DownBarDown") {
    DrivenControl f(3);
    f.Click(f.Buttons().Menu);
    CHECK(f.Log() == "DownBarDown");
    CHECK(f.State().ButtonPressed == True);
}

TEST_CASE(
    "a full row of the built-in skin leaves the row buttons whole and inside the control, on every side") {
    DrivenControl f(12);
    for (const std::int32_t side : {WindowLeft, WindowRight, Windowtop, WindowBottom})
        for (const std::int32_t place : {TabLeft, TabMiddle, TabRight})
            for (std::int32_t length = 140; length < 200; ++length) { // a bar's width of lengths
                CAPTURE(side);
                CAPTURE(place);
                CAPTURE(length);
                const bool vertical = side == WindowLeft || side == WindowRight;
                f.Host.Resize(vertical ? 90 : length, vertical ? length : 90);
                f.Control.Let(Property::TabPos, side);
                f.Control.Let(Property::TabBarPos, place);
                f.Control.UserControl_Resize();
                const LayoutRect& strip = f.State().Layout.BarStripRect;
                const ButtonRects buttons = f.Buttons();
                const std::int32_t first = vertical ? buttons.Previous.Top : buttons.Previous.Left;
                const std::int32_t last = vertical ? buttons.Menu.Bottom : buttons.Menu.Right;
                REQUIRE(first >= 0);
                REQUIRE(last < length);
                if (place == TabRight)
                    REQUIRE(last < (vertical ? strip.Top : strip.Left));
                else
                    REQUIRE(first >= (vertical ? strip.Bottom : strip.Right));
            }
}

TEST_CASE("a handler of NextTabDown may put the row elsewhere") {
    DrivenControl f(40);
    f.Host.On.NextTabDown = [](std::int16_t& first) { first = 7; };
    f.Click(f.Buttons().Next);
    CHECK(f.State().Layout.FirstVisibleTab == 7);
}

TEST_CASE("how many tabs are behind the row is counted in 16 bits, as the buttons are drawn and pressed") {
    const auto release = [](DrivenControl& f) {
        return NumberRaisedBy([&] { f.Control.UserControl_MouseUp(1, 0, 0, 0); });
    };
    DrivenControl sum(40);
    sum.Host.On.NextTabDown = [](std::int16_t& first) { first = 32767; };
    sum.PressAt(sum.Buttons().Next);
    CHECK(release(sum) == 6);
    sum.Log();
    CHECK(NumberRaisedBy([&] { sum.PressAt(sum.Buttons().Next); }) == 6);
    CHECK(sum.Log() == "");
    CHECK(sum.State().Layout.FirstVisibleTab == 32767);

    DrivenControl difference(40);
    difference.Click(difference.Buttons().Next);
    difference.Host.On.PreTabDown = [](std::int16_t& first) { first = -32768; };
    difference.PressAt(difference.Buttons().Previous);
    CHECK(release(difference) == 6);

    DrivenControl most(40); // the largest number that is none too large
    most.Host.On.NextTabDown = [&](std::int16_t& first) {
        first = static_cast<std::int16_t>(32767 - most.State().Layout.VisibleBarCount);
    };
    most.PressAt(most.Buttons().Next);
    CHECK(release(most) == 0);
}

TEST_CASE("enter, hover, press, close, scroll, arrows, wheel and leave raise the events in their order") {
    DrivenControl f(40);
    f.MoveTo(f.Bar(0));
    f.MoveTo(f.Bar(2));
    f.Click(f.Bar(2));
    f.Click(f.Bar(2)); // already active
    f.MoveTo(f.Close(3));
    f.Click(f.Close(3));
    f.Click(f.Buttons().Next);
    f.Click(f.Buttons().Previous);
    f.Click(f.Buttons().Menu);
    f.Key(VK_RIGHT);
    f.Key(VK_LEFT);
    f.Wheel(120);
    f.Wheel(-120);
    f.Move(200, 200);
    CHECK(f.Log() ==
          "TabMove 0; TabMove 2; TabDown 2 1; TabMove 3; TabClose 3; "
          "PropertyChanged ActiveTab; NextTabDown 1; PreTabDown 0; DownBarDown; "
          "TabDown 1 0; TabDown 0 0; TabDown 1 0; TabDown 0 0");
}

TEST_CASE("each event's handler may change its by-reference arguments, and the change is what happens") {
    DrivenControl f(40);
    f.Host.On.TabMove = [](std::int16_t& index) { index = 4; };
    f.Host.On.TabDown = [](std::int16_t& index, std::int16_t& button) { index = ++button; };
    f.Host.On.NextTabDown = [](std::int16_t& first) { first = 9; };
    f.Host.On.PreTabDown = [](std::int16_t& first) { first = 3; };
    f.MoveTo(f.Bar(1));
    CHECK(f.State().HoverTab == 4);
    f.Click(f.Bar(1), 4);
    CHECK(f.Control.ActiveTab() == 5);
    f.Click(f.Buttons().Next);
    CHECK(f.State().Layout.FirstVisibleTab == 9);
    f.Click(f.Buttons().Previous);
    CHECK(f.State().Layout.FirstVisibleTab == 3);
    f.Key(VK_RIGHT);
    CHECK(f.Control.ActiveTab() == 1);
}

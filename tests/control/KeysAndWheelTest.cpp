// The arrow keys and the wheel step through the tabs.
#include <doctest/doctest.h>

#include "tests/RunTimeErrors.h"
#include "tests/control/DrivenControl.h"

using namespace vantik;
using namespace vantik::test;

TEST_CASE("the arrow keys step to the neighbouring tab and stay within the visible bars") {
    DrivenControl f(3);
    f.Key(VK_RIGHT);
    f.Key(VK_RIGHT);
    f.Key(VK_RIGHT);
    CHECK(f.Log() == "TabDown 1 0; TabDown 2 0; TabDown 2 0");
    f.Key(VK_LEFT);
    CHECK(f.Log() == "TabDown 1 0");
}

TEST_CASE("keys and wheel are held back at the visible bars only on the side that they step to") {
    for (const bool byWheel : {false, true}) {
        CAPTURE(byWheel);
        DrivenControl f(10, 320);
        f.Click(f.Buttons().Next);
        f.Click(f.Buttons().Next);
        REQUIRE(f.State().Layout.FirstVisibleTab == 2);
        REQUIRE(f.State().Layout.VisibleBarCount == 4);
        const auto stepFrom = [&](std::int16_t active, bool forward) {
            f.Control.ActiveTab(active);
            f.Log();
            if (byWheel)
                f.Wheel(forward ? 120 : -120);
            else
                f.Key(forward ? VK_RIGHT : VK_LEFT);
            return f.Log();
        };
        CHECK(stepFrom(0, false) == "TabDown 2 0");
        CHECK(stepFrom(0, true) == "TabDown 1 0"); // required: onto a bar before the row
        CHECK(stepFrom(9, true) == "TabDown 5 0");
        CHECK(stepFrom(9, false) == "TabDown 8 0"); // and behind it
    }
}

TEST_CASE("left arrow on the first visible tab raises TabDown for the same tab again") {
    DrivenControl f(3);
    f.Key(VK_LEFT);
    CHECK(f.Log() == "TabDown 0 0");
}

TEST_CASE("other keys do nothing") {
    DrivenControl f(3);
    for (std::int16_t key = 0; key < 256; ++key)
        if (key != VK_LEFT && key != VK_RIGHT) f.Key(key);
    CHECK(f.Log() == "");
}

TEST_CASE("a key with no tabs ends in an error and leaves the state as it was") {
    ControlFixture f;
    CHECK(NumberRaisedBy([&] { f.Control.UserControl_KeyDown(VK_RIGHT, 0); }) == 9);
    CHECK(f.Control.ActiveTab() == -1);
}

TEST_CASE("the wheel away from the user steps forward, towards the user back, within the visible bars") {
    DrivenControl f(3);
    f.Wheel(120);
    f.Wheel(240);
    f.Wheel(120);
    f.Wheel(-120);
    CHECK(f.Log() == "TabDown 1 0; TabDown 2 0; TabDown 2 0; TabDown 1 0");
}

TEST_CASE(
    "a wheel message counts as a whole number: without a distance it steps back, with a key held forward") {
    DrivenControl f(3);
    f.Control.ActiveTab(1);
    f.Log();
    SendMessageW(f.Host.hWnd(), WM_MOUSEWHEEL, 0, 0);
    CHECK(f.Log() == "TabDown 0 0");
    SendMessageW(f.Host.hWnd(), WM_MOUSEWHEEL, 1, 0);
    CHECK(f.Log() == "TabDown 1 0");
}

TEST_CASE("the wheel that the host does not take is no step, but the callback takes every call") {
    DrivenControl f(3);
    f.Host.Wheel = false;
    f.Wheel(120);
    CHECK(f.Log() == "");
    std::int32_t result = 0, window = 0, message = WM_MOUSEWHEEL, wParam = 120 << 16, lParam = 0;
    Boolean handled = False;
    f.Control.zSubclass_Proc(True, handled, result, window, message, wParam, lParam);
    CHECK(f.Log() == "TabDown 1 0");
}

TEST_CASE("the wheel's target is capped at the last visible bar") {
    DrivenControl f(10, 320);
    f.Click(f.Buttons().Next);
    f.Click(f.Buttons().Next);
    REQUIRE(f.State().Layout.FirstVisibleTab == 2);
    REQUIRE(f.State().Layout.VisibleBarCount == 4);
    f.Control.ActiveTab(5); // the last one shown
    f.Fixture.AddChild(u"child", 300);
    f.Log();
    f.Wheel(120);
    CHECK(f.Log() == "TabDown 5 0");
    CHECK(f.Fixture.Lefts() == "300");
}

TEST_CASE("with no active tab the wheel towards the user goes to the first visible tab") {
    DrivenControl f(3);
    f.Control.SetBarEnable(0, True); // leaves no tab active
    f.Log();
    f.Wheel(-120);
    CHECK(f.Log() == "TabDown 0 0");
}

TEST_CASE("a wheel handler's change of the index is honoured") {
    DrivenControl f(3);
    f.Host.On.TabDown = [](std::int16_t& index, std::int16_t&) { index = 2; };
    f.Wheel(120);
    CHECK(f.Control.ActiveTab() == 2);
}

TEST_CASE("the callback ignores every other message and never marks one handled") {
    DrivenControl f(3);
    std::int32_t result = 0, window = 0, message = WM_MOUSEMOVE, wParam = 120 << 16, lParam = 0;
    Boolean handled = False;
    f.Control.zSubclass_Proc(True, handled, result, window, message, wParam, lParam);
    CHECK(f.Log() == "");
    message = WM_MOUSEWHEEL;
    f.Control.zSubclass_Proc(True, handled, result, window, message, wParam, lParam);
    CHECK(f.Log() == "TabDown 1 0");
    CHECK(handled == False);
    CHECK(result == 0);
}

// The built control on a scaled screen: the runner of the suite has scaled it, here and nowhere else.
#include <doctest/doctest.h>

#include "gfx/Handles.h"
#include "host/ControlOnForm.h"
#include "host/Input.h"
#include "ole/window/PaintedAndHit.h"

namespace vantik {

namespace {

// Before anything asks: programs that do not say that they know of scales are shown one of 96 dots per inch.
[[maybe_unused]] const BOOL KnowsOfScales = SetProcessDPIAware();

} // namespace

TEST_SUITE("scaled") {
    TEST_CASE("The screen has the scale that this suite is for") {
        const ScreenDC screen = GetScreenDC();
        CHECK(GetDeviceCaps(screen.Get(), LOGPIXELSX) == 168);
        CHECK(GetDeviceCaps(screen.Get(), LOGPIXELSY) == 168);
    }

    TEST_CASE("On the scaled screen the control fills its window, and what is painted is what is hit") {
        const OleApartment apartment;
        const ControlModule module(FindBuiltControl());
        CheckPaintedIsHit([&] { return module.Create(); });
    }

    TEST_CASE("On the scaled screen a form's control and its children stand where the form put them") {
        ControlOnForm test;
        test.OpenWithTabs(2);
        RECT client = {};
        GetClientRect(test.Form().ControlWindow(), &client);
        CHECK(client.right == 480);
        CHECK(client.bottom == 320);
        Put(test.Control(), L"TabOffSet", 10 * 1440); // ten inches
        const HWND child = CreateWindowExW(0, L"BUTTON", L"", WS_CHILD, 40, 50, 60, 20,
                                           test.Form().ControlWindow(), nullptr, nullptr, nullptr);
        HostedWindow& button = test.Form().Add(L"Button1", child);
        PressButton(test.Form(), {6 + 60 + 20, 11});
        CHECK(test.Number(L"ActiveTab") == 1);
        CHECK(ToPixels(button.Place()).left == 40 + 10 * 168);
        PressButton(test.Form(), {6 + 20, 11});
        CHECK(ToPixels(button.Place()).left == 40);
    }
}

} // namespace vantik

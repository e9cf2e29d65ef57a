// What a screen reader finds in the control's window, in words.
#include <doctest/doctest.h>

#include "acctree/TreeCheck.h"
#include "host/ControlOnForm.h"
#include "ole/accessible/ReadControl.h"

namespace vantik {

namespace {

void CheckWellMade(const ReadControl& control) {
    for (const std::string& fault : FaultsOf(control.Root())) FAIL_CHECK(fault);
}

} // namespace

TEST_CASE("the row has its tabs, their close buttons, the buttons beside it and the page") {
    const ReadControl control;
    control.Caption(0, L"&General");
    control.Caption(1, L"Fish && Chips");
    control.Caption(2, L"");
    control.Enable(1, false);
    CHECK(control.Tree() == R"(page tab list "Tabs" [focusable] 0,0 380x200
  page tab "General" (1 of 3) [selected, focusable, selectable] 6,0 60x22 -> Switch
    push button "Close General" 47,4 14x14 -> Press
  page tab "Fish & Chips" (2 of 3) [unavailable, focusable, selectable] 66,0 60x22 -> Switch
    push button "Close Fish & Chips" 107,4 14x14 -> Press
  page tab "Tab 3" (3 of 3) [focusable, selectable] 126,0 60x22 -> Switch
    push button "Close Tab 3" 167,4 14x14 -> Press
  push button "Previous" [unavailable] 194,3 15x15 -> Press
  push button "Next" [unavailable] 209,3 15x15 -> Press
  push button "Tab menu" 226,3 15x15 -> Press
  property page "General" 0,10 380x189
)");
    CheckWellMade(control);
}

TEST_CASE(
    "tabs that are scrolled away are there without a place, and the buttons tell where there are more") {
    const ReadControl control(7);
    control.Tab->put_DelButton(VARIANT_FALSE);
    control.Child(8)->accDoDefaultAction(ChildId(CHILDID_SELF)); // the next button
    CHECK(control.Tree() == R"(page tab list "Tabs" [focusable] 0,0 380x200
  page tab "Tab0" (1 of 7) [selected, off-screen, focusable, selectable] -> Switch
  page tab "Tab1" (2 of 7) [focusable, selectable] 6,0 60x22 -> Switch
  page tab "Tab2" (3 of 7) [focusable, selectable] 66,0 60x22 -> Switch
  page tab "Tab3" (4 of 7) [focusable, selectable] 126,0 60x22 -> Switch
  page tab "Tab4" (5 of 7) [focusable, selectable] 186,0 60x22 -> Switch
  page tab "Tab5" (6 of 7) [focusable, selectable] 246,0 60x22 -> Switch
  page tab "Tab6" (7 of 7) [off-screen, focusable, selectable] -> Switch
  push button "Previous" 314,3 15x15 -> Press
  push button "Next" 329,3 15x15 -> Press
  push button "Tab menu" 346,3 15x15 -> Press
  property page "Tab0" 0,10 380x189
)");
    CheckWellMade(control);
}

TEST_CASE("marks in a caption that shows them are part of the name") {
    const ReadControl control;
    control.Caption(0, L"&A && B&");
    CHECK(control.Child(0).Name() == L"A & B&");
    control.Tab->put_CaptionPos(static_cast<FontPos>(DT_NOPREFIX));
    CHECK(control.Child(0).Name() == L"&A && B&");
    control.Caption(0, L"two\r\nlines");
    CHECK(control.Child(0).Name() == L"two  lines");
}

TEST_CASE("no tabs, no active tab") {
    const ReadControl control(0);
    CHECK(control.Tree().find("page tab \"") == std::string::npos);
    CHECK(control.Tree().find("property page") == std::string::npos);
    control.Tab->put_TabCount(2);
    control.Tab->put_ActiveTab(-1);
    CHECK(control.Tree().find("selected") == std::string::npos);
    CHECK(!control.Root().Selection());
    CheckWellMade(control);
}

TEST_CASE("whatever the properties say, the tree is well made and a tab's middle lights its bar up") {
    std::uint32_t seed = 1;
    const auto below = [&](std::uint32_t bound) {
        seed = seed * 1664525 + 1013904223;
        return static_cast<short>((seed >> 8) % bound);
    };
    const ReadControl control;
    for (int round = 0; round < 60; ++round) {
        CAPTURE(round);
        control.Tab->put_TabCount(static_cast<short>(1 + below(9)));
        control.Tab->put_ActiveTab(below(9));
        control.Tab->put_TabPos(static_cast<dTabPos>(below(4)));
        control.Tab->put_TabBarPos(static_cast<dTabBarPos>(below(3)));
        control.Tab->put_BarWidth(static_cast<short>(30 + below(60)));
        control.Tab->put_TabToTab(static_cast<short>(below(12) - 3));
        control.Tab->put_DelButton(below(2) ? VARIANT_TRUE : VARIANT_FALSE);
        control.Child(static_cast<std::size_t>(control.Count()) + 1)
            ->accDoDefaultAction(ChildId(CHILDID_SELF));
        CheckWellMade(control);
        const Node tab =
            control.Child(static_cast<std::size_t>(below(static_cast<std::uint32_t>(control.Count()))));
        const RECT place = tab.Place();
        if (IsRectEmpty(&place)) continue;
        POINT middle = {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
        ScreenToClient(control.Window(), &middle);
        control.InWindow->Move(middle);
        CHECK((tab.State() & STATE_SYSTEM_HOTTRACKED));
    }
}

TEST_CASE("sides lead from tab to tab, to the buttons and to the page") {
    const ReadControl control;
    const auto leads = [&](std::size_t from, LONG direction) {
        const auto to = control.Child(from).Navigate(direction);
        return to ? ToUtf8(to->Name()) : "nowhere";
    };
    CHECK(leads(1, NAVDIR_LEFT) == "Tab0");
    CHECK(leads(1, NAVDIR_RIGHT) == "Tab2");
    CHECK(leads(2, NAVDIR_RIGHT) == "Previous");
    CHECK(leads(0, NAVDIR_LEFT) == "nowhere");
    CHECK(leads(0, NAVDIR_UP) == "nowhere");
    CHECK(control.Child(0).Navigate(NAVDIR_DOWN)->Role() == ROLE_SYSTEM_PROPERTYPAGE);
}

TEST_CASE("the page has the windows that show on it, the foremost first") {
    const ReadControl control;
    const auto add = [&](const wchar_t* text, int x) {
        return CreateWindowExW(0, L"EDIT", text, WS_CHILD | WS_VISIBLE, x, 60, 50, 20, control.Window(),
                               nullptr, nullptr, nullptr);
    };
    const HWND first = add(L"one", 20);
    add(L"parked on another page", -5000);
    ShowWindow(add(L"hidden", 20), SW_HIDE);
    const HWND front = add(L"two", 90);
    SetWindowPos(front, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    const Node page = control.Root().Children().back();
    REQUIRE(page.Children().size() == 2);
    CHECK(page.Children()[0].Window() == front);
    CHECK(page.Children()[1].Window() == first);
    RECT place = {};
    GetWindowRect(front, &place);
    CHECK(page.HitTest({place.left + 5, place.top + 5})->Window() == front);
    CHECK(page.HitTest({place.left + 5, place.top - 5})->Window() == control.Window());
    SetFocus(front);
    CHECK(control.Root().Focus()->Role() == ROLE_SYSTEM_PROPERTYPAGE);
    CHECK(page.Focus()->Window() == front);
    CheckWellMade(control);
}

TEST_CASE("the focus of the control is its active tab's, and so is the selection") {
    const ReadControl control;
    control.Tab->put_ActiveTab(1);
    CHECK(!control.Root().Focus());
    SetFocus(control.Window());
    CHECK(control.Root().Focus()->Name() == L"Tab1");
    CHECK(control.Root().Selection()->Name() == L"Tab1");
    CHECK((control.Child(1).State() & STATE_SYSTEM_FOCUSED));
    CHECK(!(control.Child(0).State() & STATE_SYSTEM_FOCUSED));
    CHECK((control.Root().State() & STATE_SYSTEM_FOCUSED));
}

TEST_CASE("a control has the name that its form gave it") {
    ControlOnForm test;
    test.OpenWithTabs(2);
    CHECK(Node::OfWindow(test.Form().ControlWindow())->Name() == L"VantikFrameTab1");
}

TEST_CASE("a hidden control is invisible and a disabled one unavailable, with all its parts") {
    const ReadControl control;
    EnableWindow(control.Window(), FALSE);
    CHECK((control.Root().State() & STATE_SYSTEM_UNAVAILABLE));
    CHECK((control.Child(0).State() & STATE_SYSTEM_UNAVAILABLE));
    ShowWindow(control.Window(), SW_HIDE);
    CHECK((control.Child(0).State() & STATE_SYSTEM_INVISIBLE));
}

TEST_SUITE("chinese") {
    TEST_CASE("what is said is said in the user's language") {
        const ReadControl control;
        CHECK(control.Root().Name() == L"\x9009\x9879\x5361");
        CHECK(control.Child(0).DefaultAction() == L"\x5207\x6362");
        CHECK(control.Child(1).Description() == L"\x7B2C 2 \x4E2A\xFF0C\x5171 3 \x4E2A");
        CHECK(control.Child(0).Children().front().Name() == L"\x5173\x95ED Tab0");
    }
}

} // namespace vantik

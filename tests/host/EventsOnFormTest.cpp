// The user's pointer, keys and wheel reach the control through a form, and its events come back.
#include <doctest/doctest.h>

#include "host/ControlOnForm.h"
#include "host/Input.h"

namespace vantik {

namespace {

using Lines = std::vector<std::wstring>;

constexpr WORD LeftKey = VK_LEFT;
constexpr WORD RightKey = VK_RIGHT;

// Bars are 60 wide and begin behind the corner of the built-in skin, which is 6 wide. The close button, 14 wide, ends
// where the bar's right end piece begins, which is 5 wide.
constexpr LONG FirstBar = 6;
POINT OnBar(int tab) noexcept { return {FirstBar + tab * 60 + 20, 11}; }
POINT OnCloseButton(int tab) noexcept { return {FirstBar + (tab + 1) * 60 - 5 - 7, 11}; }

} // namespace

TEST_CASE("Pointer, press, keys and wheel raise the events in their order") {
    ControlOnForm test;
    test.OpenWithTabs(4);
    Put(test.Control(), L"DelButton", false);
    MovePointer(test.Form(), OnBar(1));
    MovePointer(test.Form(), {OnBar(1).x + 3, OnBar(1).y}); // the same bar
    PressButton(test.Form(), OnBar(2));
    ReleaseButton(test.Form(), OnBar(2));
    PressKey(test.Form(), RightKey);
    PressKey(test.Form(), RightKey); // already on the last tab
    PressKey(test.Form(), LeftKey);
    CHECK(test.Events == Lines{L"TabMove(Index=1)", L"TabMove(Index=2)", L"TabDown(Index=2, Button=1)",
                               L"TabDown(Index=3, Button=0)", L"TabDown(Index=3, Button=0)",
                               L"TabDown(Index=2, Button=0)"});
    CHECK(test.Number(L"ActiveTab") == 2);
}

TEST_CASE("A handler's change of the by-reference index redirects the switch") {
    ControlOnForm test;
    test.OpenWithTabs(4);
    Put(test.Control(), L"DelButton", false);
    test.DuringEvent = [](EventCall& event) {
        if (event.Name() == L"TabDown") event.Argument(0) = 3;
    };
    PressButton(test.Form(), OnBar(1));
    CHECK(test.Number(L"ActiveTab") == 3);
}

TEST_CASE("A handler's change of the closed index closes that tab") {
    ControlOnForm test;
    test.OpenWithTabs(3);
    for (std::int16_t tab = 0; tab < 3; ++tab) {
        Call(test.Control(), L"SetBarCaption", {tab, std::to_wstring(tab), true});
    }
    test.DuringEvent = [](EventCall& event) {
        if (event.Name() == L"TabClose") event.Argument(0) = 2;
    };
    PressButton(test.Form(), OnCloseButton(1));
    CHECK(test.Events == Lines{L"TabMove(Index=1)", L"TabClose(Index=1)"});
    CHECK(test.Number(L"TabCount") == 2);
    CHECK(Call(test.Control(), L"GetTabCaption", {std::int16_t{1}}).Text() == L"1");
}

TEST_CASE("At run time the wheel steps through the tabs, at design time it does nothing") {
    for (const bool userMode : {true, false}) {
        CAPTURE(userMode);
        HostSwitches switches;
        switches.UserMode = userMode;
        ControlOnForm test(switches);
        test.OpenWithTabs(3);
        const auto bag = MakeCom<TextPropertyBag>();
        test.Form().SaveTo(*bag.Get());
        test.Form().OpenFrom(*bag.Get()); // the hook comes with loaded properties
        PumpMessages(test.Form());
        test.Events.clear();
        TurnWheel(test.Form(), 1);
        TurnWheel(test.Form(), -1);
        CHECK(test.Events ==
              (userMode ? Lines{L"TabDown(Index=1, Button=0)", L"TabDown(Index=0, Button=0)"} : Lines{}));
    }
}

TEST_CASE("Every message of the control passes the form's filters, each pair closed") {
    ControlOnForm test;
    test.OpenWithTabs(2);
    PumpMessages(test.Form());
    CHECK(test.Form().Site().PreFilters() > 0);
    CHECK(test.Form().Site().PreFilters() == test.Form().Site().PostFilters());
}

TEST_CASE("A message that the form answers in its filter does not reach the control") {
    FormHandlers handlers;
    handlers.ControlMessage = [](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_MOUSEMOVE) return 0;
        return std::nullopt;
    };
    ControlOnForm test({}, handlers);
    test.OpenWithTabs(3);
    MovePointer(test.Form(), OnBar(1));
    CHECK(test.Events.empty());
}

TEST_CASE("A handler may close the form's control inside an event") {
    ControlOnForm test;
    test.OpenWithTabs(3);
    test.DuringEvent = [&](EventCall& event) {
        if (event.Name() == L"TabDown") test.Form().Close();
    };
    PressKey(test.Form(), RightKey);
    CHECK(test.Events.back() == L"TabDown(Index=1, Button=0)");
    CHECK(!test.Form().ControlObject());
    CHECK(test.Module().CanUnload());
}

TEST_CASE("A changed property is reported to the form under its own number") {
    std::vector<DISPID> changed;
    FormHandlers handlers;
    handlers.PropertyChanged = [&](DISPID id) { changed.push_back(id); };
    ControlOnForm test({}, handlers);
    test.OpenWithTabs(2);
    changed.clear();
    Put(test.Control(), L"TabToTab", std::int16_t{3});
    CHECK(changed == std::vector<DISPID>{*FindMember(test.Control(), L"TabToTab")});
}

} // namespace vantik

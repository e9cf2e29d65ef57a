// The pointer over the control's window: who has it, and when the hovering ends.
#include <doctest/doctest.h>

#include "host/ControlOnForm.h"
#include "host/Input.h"

namespace vantik {

namespace {

using Lines = std::vector<std::wstring>;

POINT OnBar(int tab) noexcept { return {tab * 60 + 25, 10}; }
constexpr POINT OnPage = {100, 150};

// Four tabs without close buttons.
void Open(ControlOnForm& test) {
    test.OpenWithTabs(4);
    Put(test.Control(), L"DelButton", false);
}

} // namespace

TEST_CASE("Over the strip the control has the pointer, elsewhere it has not") {
    ControlOnForm test;
    Open(test);
    MovePointer(test.Form(), OnPage);
    CHECK(GetCapture() == nullptr);
    MovePointer(test.Form(), OnBar(1));
    CHECK(GetCapture() == test.Form().ControlWindow());
    MovePointer(test.Form(), OnPage);
    CHECK(GetCapture() == nullptr);
    MovePointer(test.Form(), OnBar(1));
    CHECK(test.Events == Lines{L"TabMove(Index=1)", L"TabMove(Index=1)"});
}

TEST_CASE("A pointer that another window has is not taken away from it") {
    ControlOnForm test;
    Open(test);
    SetCapture(test.Form().Window().Handle());
    MovePointer(test.Form(), OnBar(1));
    CHECK(GetCapture() == test.Form().Window().Handle());
    ReleaseCapture();
}

TEST_CASE("Losing the pointer, being hidden and being disabled end the hovering without an event") {
    ControlOnForm test;
    Open(test);
    const HWND window = test.Form().ControlWindow();
    const std::function<void()> losses[] = {
        [&] { SetCapture(test.Form().Window().Handle()), ReleaseCapture(); },
        [&] { ShowWindow(window, SW_HIDE), ShowWindow(window, SW_SHOW); },
        [&] { EnableWindow(window, FALSE), EnableWindow(window, TRUE); },
    };
    for (const auto& lose : losses) {
        MovePointer(test.Form(), OnBar(2));
        lose();
        ReleaseCapture();
        CHECK(test.Events == Lines{L"TabMove(Index=2)"});
        MovePointer(test.Form(), OnBar(2)); // it is a new bar again
        CHECK(test.Events == Lines{L"TabMove(Index=2)", L"TabMove(Index=2)"});
        MovePointer(test.Form(), OnPage);
        test.Events.clear();
    }
}

TEST_CASE("A window that is made anew takes the pointer as the first one did") {
    ControlOnForm test;
    Open(test);
    MovePointer(test.Form(), OnBar(1));
    REQUIRE(GetCapture() == test.Form().ControlWindow());
    const auto object = QueryFor<IOleObject>(test.Form().ControlObject());
    QueryFor<IOleInPlaceObject>(object.Get())->InPlaceDeactivate();
    CHECK(GetCapture() == nullptr);
    ComPtr<IOleClientSite> site;
    object->GetClientSite(site.Put());
    object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site.Get(), 0, nullptr, nullptr);
    REQUIRE(test.Form().ControlWindow() != nullptr);
    MovePointer(test.Form(), OnBar(2));
    CHECK(GetCapture() == test.Form().ControlWindow());
}

TEST_CASE("A press gives the control the focus") {
    ControlOnForm test;
    Open(test);
    const HWND other = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 200, 50, 20,
                                       test.Form().Window().Handle(), nullptr, nullptr, nullptr);
    SetFocus(other);
    PressButton(test.Form(), OnBar(1));
    CHECK(GetFocus() == test.Form().ControlWindow());
    CHECK(test.Form().IsUIActive());
}

TEST_CASE("A key typed after a press on a bar never lands in a field of the page that it hid") {
    ControlOnForm test;
    Open(test);
    const HWND control = test.Form().ControlWindow();
    const HWND field = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 20, 60, 50, 20, control,
                                       nullptr, nullptr, nullptr);
    test.Form().Add(L"Text1", field);
    PressButton(test.Form(), OnBar(1)); // now the control is UI-active
    PressButton(test.Form(), OnBar(0));
    SetFocus(field);
    PressButton(test.Form(), OnBar(1));
    PostMessageW(GetFocus(), WM_CHAR, L'x', 0);
    PumpMessages(test.Form());
    CHECK(GetFocus() == control);
    CHECK(GetWindowTextLengthW(field) == 0);
}

TEST_CASE("A handler that takes the pointer away, as a menu does, still gets what was pressed") {
    ControlOnForm test;
    Open(test);
    test.DuringEvent = [&](EventCall& event) {
        if (event.Name() != L"TabDown") return;
        SetCapture(test.Form().Window().Handle());
        CHECK(event.Argument(0) == 2); // the hover state is the argument
        ReleaseCapture();
    };
    PressButton(test.Form(), OnBar(2));
    CHECK(test.Number(L"ActiveTab") == 2);
    MovePointer(test.Form(), OnBar(2)); // the hovering had ended, so this is a new bar again
    CHECK(test.Events == Lines{L"TabMove(Index=2)", L"TabDown(Index=2, Button=1)", L"TabMove(Index=2)"});
}

TEST_CASE("While the form is designed, presses, moves and keys are not the control's") {
    HostSwitches switches;
    switches.UserMode = false;
    ControlOnForm test(switches);
    Open(test);
    PressButton(test.Form(), OnBar(1));
    PressKey(test.Form(), VK_RIGHT);
    CHECK(test.Events.empty());
    CHECK(test.Number(L"ActiveTab") == 0);
}

TEST_CASE("What the host says of its ambient properties counts from when it says that they changed") {
    for (const DISPID changed : {DISPID_AMBIENT_UIDEAD, DISPID_UNKNOWN}) {
        ControlOnForm test;
        Open(test);
        const auto control = QueryFor<IOleControl>(test.Form().ControlObject());
        PressKey(test.Form(), VK_RIGHT);
        CHECK(test.Number(L"ActiveTab") == 1);
        test.Form().Site().Ambients().UIDead = true;
        CHECK(control->OnAmbientPropertyChange(changed) == S_OK);
        PressKey(test.Form(), VK_RIGHT);
        PressButton(test.Form(), OnBar(3));
        CHECK(test.Number(L"ActiveTab") == 1);
        test.Form().Site().Ambients().UIDead = false;
        CHECK(control->OnAmbientPropertyChange(changed) == S_OK);
        PressKey(test.Form(), VK_RIGHT);
        CHECK(test.Number(L"ActiveTab") == 2);
    }
}

} // namespace vantik

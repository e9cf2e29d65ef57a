// A form that is used without a pointer.
#include <doctest/doctest.h>

#include "host/ControlOnForm.h"
#include "host/HeldKey.h"
#include "host/Input.h"

namespace vantik {

namespace {

HWND Field(HWND parent, int left) {
    return CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, left, 60, 40, 20, parent,
                           nullptr, nullptr, nullptr);
}

// One field on the control, one beside it.
struct FormWithFields : ControlOnForm {
    explicit FormWithFields(HostSwitches switches = {}, FormHandlers handlers = {})
        : ControlOnForm(switches, std::move(handlers)) {
        OpenWithTabs(3);
        OnPage = Field(Row(), 30);
        Form().Add(L"txtFirst", OnPage);
        Beside = Field(Form().Window().Handle(), 5);
        SetFocus(Beside);
    }
    HWND Row() { return Form().ControlWindow(); }
    HWND AfterTab() {
        TypeKey(Form(), VK_TAB);
        return GetFocus();
    }

    HWND OnPage, Beside;
};

} // namespace

TEST_CASE("Tab walks from the form over the row and the page back to the form, and the other way") {
    for (const bool forwardsKeys : {true, false}) {
        CAPTURE(forwardsKeys);
        HostSwitches switches;
        switches.ForwardKeys = forwardsKeys;
        FormWithFields test(switches);
        CHECK(test.AfterTab() == test.Row());
        CHECK(test.AfterTab() == test.OnPage);
        CHECK(test.AfterTab() == test.Beside);
        const HeldKey shift(VK_SHIFT);
        CHECK(test.AfterTab() == test.OnPage);
        CHECK(test.AfterTab() == test.Row());
        CHECK(test.AfterTab() == test.Beside);
    }
}

TEST_CASE("Tab selects the text of the field that it comes to") {
    FormWithFields test;
    SetWindowTextW(test.OnPage, L"abc");
    SetFocus(test.Row());
    CHECK(test.AfterTab() == test.OnPage);
    DWORD begin = 9, end = 9;
    SendMessageW(test.OnPage, EM_GETSEL, reinterpret_cast<WPARAM>(&begin), reinterpret_cast<LPARAM>(&end));
    CHECK(begin == 0);
    CHECK(end == 3);
}

TEST_CASE("The form may use a key before the window that it is for, and what the control does not use") {
    FormHandlers handlers;
    std::vector<WPARAM> seen;
    handlers.Key = [&](const MSG& message) {
        if (message.message == WM_KEYDOWN) seen.push_back(message.wParam);
        return message.wParam == VK_TAB;
    };
    FormWithFields test({}, handlers);
    CHECK(test.AfterTab() == test.Beside);
    SetFocus(test.Row());
    CHECK(test.AfterTab() == test.Row());
    TypeKey(test.Form(), VK_RIGHT);
    CHECK(test.Number(L"ActiveTab") == 1);
    CHECK(seen == std::vector<WPARAM>{VK_TAB, VK_TAB});
}

TEST_CASE("Arrow keys switch tabs on a form of either kind") {
    for (const bool forwardsKeys : {true, false}) {
        CAPTURE(forwardsKeys);
        HostSwitches switches;
        switches.ForwardKeys = forwardsKeys;
        FormWithFields test(switches);
        SetFocus(test.Row());
        TypeKey(test.Form(), VK_RIGHT);
        CHECK(test.Number(L"ActiveTab") == 1);
    }
}

TEST_CASE("Under design windows out of sight keep their bits, which the designer may save") {
    for (const bool userMode : {true, false}) {
        CAPTURE(userMode);
        HostSwitches switches;
        switches.UserMode = userMode;
        FormWithFields test(switches);
        Put(test.Control(), L"ActiveTab", std::int16_t{1});
        PumpMessages(test.Form());
        CHECK(((GetWindowLongPtrW(test.OnPage, GWL_STYLE) & WS_TABSTOP) == 0) == userMode);
    }
}

} // namespace vantik

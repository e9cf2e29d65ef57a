// A host that stands in front of the control's window procedure and keeps the window's last message to itself.
#include <doctest/doctest.h>

#include "host/BuiltControl.h"
#include "host/ControlModule.h"
#include "host/HostForm.h"
#include "host/Input.h"
#include "host/MessageLoop.h"
#include "host/OleApartment.h"

namespace vantik {

namespace {

WNDPROC procedureBehind;

LRESULT CALLBACK SwallowTheLast(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCDESTROY) return DefWindowProcW(window, message, wParam, lParam);
    return CallWindowProcW(procedureBehind, window, message, wParam, lParam);
}

void StandInFrontOf(HWND window) {
    procedureBehind = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(SwallowTheLast)));
}

void Open(HostForm& form) {
    const auto bag = MakeCom<TextPropertyBag>();
    bag->Parse("TabCount = 3\nActiveTab = 0\nBarWidth = 60\n");
    form.OpenFrom(*bag.Get());
    PumpMessages(form);
}

int ActiveTabAfterTurn(HostForm& form) {
    TurnWheel(form, 1);
    return Get(form.Control(), L"ActiveTab").Number();
}

} // namespace

TEST_CASE("the wheel works in the next window, and the module goes when its objects are gone") {
    const OleApartment apartment;
    {
        ControlModule module(FindBuiltControl());
        HostForm form(module, {});
        form.Window().Show();
        for (int round = 0; round < 3; ++round) {
            Open(form);
            CHECK(ActiveTabAfterTurn(form) == 1);
            StandInFrontOf(form.ControlWindow());
            CHECK(ActiveTabAfterTurn(form) == 2);
            form.Close();
            CHECK(module.CanUnload());
        }
    }
    CHECK(!GetModuleHandleW(L"VantikFrameTab.ocx"));
}

TEST_CASE("so it is when the host destroys the window before the control knows") {
    const OleApartment apartment;
    {
        ControlModule module(FindBuiltControl());
        HostForm form(module, {});
        form.Window().Show();
        Open(form);
        const HWND window = form.ControlWindow();
        StandInFrontOf(window);
        DestroyWindow(window);
        form.Close();
        CHECK(module.CanUnload());
        Open(form);
        CHECK(ActiveTabAfterTurn(form) == 1);
        form.Close();
        CHECK(module.CanUnload());
    }
    CHECK(!GetModuleHandleW(L"VantikFrameTab.ocx"));
}

} // namespace vantik

// Windows on pages that do not show: no stops of the key Tab, and no place for the focus.
#include <doctest/doctest.h>

#include "ole/window/ControlInDialog.h"

namespace vantik {

namespace {

constexpr int Offset = 1000; // pixels, from tab to tab

bool IsStop(HWND window) { return (GetWindowLongPtrW(window, GWL_STYLE) & WS_TABSTOP) != 0; }
bool IsWalked(HWND window) { return (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) != 0; }

void SetStop(HWND window, bool stop) {
    const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
    SetWindowLongPtrW(window, GWL_STYLE, stop ? style | WS_TABSTOP : style & ~LONG_PTR{WS_TABSTOP});
}

void Pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

// A page of each of three tabs, the first of them active.
struct Paged : ControlInDialog {
    Paged() {
        Tab->put_TabOffSet(Offset * 15);
        Pump();
    }

    HWND OnPage(int tab, const char* name, DWORD style = WS_TABSTOP) {
        return AddField(name, 20 - tab * Offset, style);
    }
    HWND RadioButton(int tab, DWORD style) const {
        return CreateWindowExW(0, L"BUTTON", L"", WS_CHILD | WS_VISIBLE | BS_AUTORADIOBUTTON | style,
                               20 - tab * Offset, 60, 50, 20, Row, nullptr, nullptr, nullptr);
    }
    void Show(short tab) const {
        CHECK(Tab->put_ActiveTab(tab) == S_OK);
        Pump();
    }
    std::string WalkFromRow(int steps) {
        SetFocus(Row);
        return Walk(steps);
    }
};

struct ThreePages : Paged {
    HWND First = OnPage(0, "first"), Second = OnPage(1, "second"), Third = OnPage(2, "third");
    ThreePages() { Pump(); }
};

} // namespace

TEST_CASE("Tab walks what stands on the page that shows, and nothing else") {
    ThreePages control;
    CHECK(control.WalkFromRow(2) == "first after");
    CHECK(control.WalkBack(2) == "first row");
    control.Show(2);
    CHECK(control.WalkFromRow(2) == "third after");
    control.Show(1);
    CHECK(control.WalkFromRow(2) == "second after");
    control.Show(0);
    CHECK(control.WalkFromRow(2) == "first after");
}

TEST_CASE("A page that an arrow key brings into view is walked at once") {
    ThreePages control;
    SetFocus(control.Row);
    SendMessageW(control.Row, WM_KEYDOWN, VK_RIGHT, 0);
    Pump();
    CHECK(control.Walk(2) == "second after");
}

TEST_CASE("Windows out of sight keep all but that they are stops") {
    const ThreePages control;
    RECT place = {};
    GetWindowRect(control.Second, &place);
    MapWindowPoints(nullptr, control.Row, reinterpret_cast<POINT*>(&place), 2);
    CHECK(place.left == 20 - Offset);
    CHECK(GetParent(control.Second) == control.Row);
    CHECK(GetWindowLongPtrW(control.Second, GWL_STYLE) ==
          (GetWindowLongPtrW(control.First, GWL_STYLE) & ~LONG_PTR{WS_TABSTOP}));
    control.Show(1);
    CHECK(GetWindowLongPtrW(control.Second, GWL_STYLE) ==
          (GetWindowLongPtrW(control.First, GWL_STYLE) | WS_TABSTOP));
}

TEST_CASE("What was no stop before is none after") {
    Paged control;
    const HWND plain = control.OnPage(1, "plain", 0);
    control.Show(1);
    CHECK(!IsStop(plain));
}

TEST_CASE("A panel out of sight is not walked, and walked again when it is back") {
    Paged control;
    const HWND panel = CreateWindowExW(WS_EX_CONTROLPARENT, L"STATIC", L"", WS_CHILD | WS_VISIBLE,
                                       10 - Offset, 40, 150, 50, control.Row, nullptr, nullptr, nullptr);
    const HWND nested = control.Name(MakeField(panel, 5), "nested");
    Pump();
    CHECK(control.WalkFromRow(1) == "after");
    CHECK(IsStop(nested)); // which is the panel's affair
    control.Show(1);
    CHECK(IsWalked(panel));
    CHECK(control.WalkFromRow(2) == "nested after");
}

TEST_CASE("A wider control shows more of its page, and a narrower one less") {
    Paged control;
    const HWND distant = control.AddField("distant", 300); // the control is 200 wide
    Pump();
    CHECK(!IsStop(distant));
    RECT place = {10, 20, 510, 120};
    control.As<IOleInPlaceObject>()->SetObjectRects(&place, &place);
    Pump();
    CHECK(IsStop(distant));
    place.right = 210;
    control.As<IOleInPlaceObject>()->SetObjectRects(&place, &place);
    Pump();
    CHECK(!IsStop(distant));
}

TEST_CASE("A window that is taken off the control while out of sight is a stop again") {
    const ThreePages control;
    SetParent(control.Second, control.Dialog.Window());
    control.Show(2);
    CHECK(IsStop(control.Second));
    control.Show(0);
    CHECK(IsStop(control.Second));
}

TEST_CASE("Those that were taken off the control before it goes are stops again then") {
    ThreePages control;
    SetParent(control.Second, control.Dialog.Window());
    CHECK(!IsStop(control.Second));
    control.As<IOleInPlaceObject>()->InPlaceDeactivate();
    CHECK(IsStop(control.Second));
}

TEST_CASE("A removed tab's windows are no stops, and neither are those that an insertion moves away") {
    ThreePages control;
    BSTR caption = SysAllocString(L"new");
    CHECK(control.Tab->InsertTab(0, &caption) == S_OK); // it is the active one
    SysFreeString(caption);
    Pump();
    CHECK(control.WalkFromRow(1) == "after");
    control.Show(2);
    CHECK(control.WalkFromRow(2) == "second after");
    CHECK(control.Tab->RemoveTab(2) == S_OK);
    Pump();
    CHECK(!IsStop(control.Second));
    CHECK(control.WalkFromRow(2) == "first after");
}

TEST_CASE("Windows that are destroyed while out of sight are forgotten") {
    const ThreePages control;
    DestroyWindow(control.Second);
    control.Show(1);
    control.Show(0);
    CHECK(IsStop(control.First));
}

TEST_CASE("A host that makes a window a stop while it is out of sight gets it when the window is back") {
    Paged control;
    const HWND window = control.OnPage(1, "window", 0);
    Pump();
    SetStop(window, true);
    control.Show(2);
    CHECK(!IsStop(window));
    control.Show(1);
    CHECK(IsStop(window));
}

TEST_CASE("A host that makes a window no stop while it is out of sight has it as it was when it is back") {
    const ThreePages control;
    SetStop(control.Second, false); // it is none already
    control.Show(1);
    CHECK(IsStop(control.Second));
}

TEST_CASE("A host's choice while a window shows stays") {
    const ThreePages control;
    SetStop(control.First, false);
    control.Show(1);
    control.Show(0);
    CHECK(!IsStop(control.First));
}

// The system makes the checked one of a group its stop.
TEST_CASE("Radio buttons that are checked while out of sight leave one stop in their group") {
    const Paged control;
    const HWND one = control.RadioButton(1, WS_GROUP | WS_TABSTOP), other = control.RadioButton(1, 0);
    SendMessageW(one, BM_SETCHECK, BST_CHECKED, 0);
    Pump();
    CHECK(!IsStop(one));
    SendMessageW(one, BM_SETCHECK, BST_UNCHECKED, 0);
    SendMessageW(other, BM_SETCHECK, BST_CHECKED, 0);
    control.Show(1);
    CHECK(!IsStop(one));
    CHECK(IsStop(other));
}

TEST_CASE("The focus goes to the row when the page that it is on goes out of sight") {
    const ThreePages control;
    SetFocus(control.First);
    control.Show(0);
    CHECK(control.Focus() == "first");
    control.Show(1);
    CHECK(control.Focus() == "row");
}

TEST_CASE("It does so from a window on a window of the page, and when a disabled tab's windows are hidden") {
    ThreePages control;
    const HWND nested = MakeField(control.First, 0);
    SetFocus(nested);
    control.Show(1);
    CHECK(control.Focus() == "row");
    control.Show(0);
    SetFocus(control.First);
    short index = 0;
    VARIANT_BOOL enable = VARIANT_FALSE;
    CHECK(control.Tab->SetBarEnable(&index, &enable) == S_OK);
    Pump();
    CHECK(control.Focus() == "row");
}

TEST_CASE("It stays where the host put it, on a window that is fixed, and beside the control") {
    ThreePages control;
    SetFocus(control.First);
    CHECK(control.Tab->put_ActiveTab(1) == S_OK);
    SetFocus(control.Second);
    Pump();
    CHECK(control.Focus() == "second");
    SetWindowLongPtrW(control.Second, GWLP_ID, 4711);
    BSTR fixed = SysAllocString(L"4711");
    control.Tab->put_FixOcxList(fixed);
    SysFreeString(fixed);
    control.Show(2);
    CHECK(control.Focus() == "second");
    CHECK(IsStop(control.Second));
    SetFocus(control.After);
    control.Show(0);
    CHECK(control.Focus() == "after");
}

} // namespace vantik

// The key Tab as dialogs handle it: into the control, over what shows on its page, and out again, both ways.
#include <doctest/doctest.h>

#include <optional>

#include "ole/HostingLibrary.h"
#include "ole/window/ControlInDialog.h"

namespace vantik {

namespace {

struct WithTwoFields : ControlInDialog {
    HWND First = AddField("first", 20), Second = AddField("second", 80);
};

} // namespace

TEST_CASE("Tab enters the control at its row, walks what stands on it, and leaves it again") {
    WithTwoFields control;
    SetFocus(control.Before);
    CHECK(control.Walk(6) == "row first second after before row");
}

TEST_CASE("Tab with the shift key goes the same way back") {
    WithTwoFields control;
    SetFocus(control.After);
    CHECK(control.WalkBack(6) == "second first row before after second");
}

TEST_CASE("A control with nothing on it that takes the focus is one stop of the dialog") {
    for (const DWORD style : {DWORD{0}, DWORD{WS_TABSTOP | WS_DISABLED}, DWORD{WS_TABSTOP}}) {
        CAPTURE(style);
        ControlInDialog control;
        const HWND field = control.AddField("field", 20, style);
        if (style == WS_TABSTOP) ShowWindow(field, SW_HIDE);
        SetFocus(control.Before);
        CHECK(control.Walk(3) == "row after before");
        CHECK(control.WalkBack(3) == "after row before");
    }
}

TEST_CASE("Where nothing else takes the focus it stays on the row and no search goes on for ever") {
    ControlInDialog control;
    EnableWindow(control.Before, FALSE);
    EnableWindow(control.After, FALSE);
    SetFocus(control.Row);
    CHECK(control.Walk(2) == "row row");
    CHECK(control.WalkBack(2) == "row row");
}

TEST_CASE("All that takes the focus may vanish at once, and no search goes on for ever") {
    WithTwoFields control;
    for (const HWND window : {control.Before, control.After, control.First, control.Second})
        EnableWindow(window, FALSE);
    CHECK(GetNextDlgTabItem(control.Dialog.Window(), control.First, FALSE) ==
          GetWindow(control.Row, GW_CHILD)); // which stands for the row
    EnableWindow(control.Row, FALSE);
    CHECK(GetNextDlgTabItem(control.Dialog.Window(), control.Before, FALSE) ==
          control.Before); // there is none
}

TEST_CASE(
    "A host that clears away all that stands on the control has dialogs pass it over, as without that") {
    ControlInDialog control;
    while (const HWND window = GetWindow(control.Row, GW_CHILD)) DestroyWindow(window);
    CHECK((GetWindowLongPtrW(control.Row, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) == 0);
    SetFocus(control.Before);
    CHECK(control.Walk(2) == "after before");
    control.AddField("field", 20);
    SetFocus(control.Row);
    CHECK(control.Walk(1) == "after");
}

TEST_CASE("A control that is hidden or disabled is left out with all that stands on it") {
    WithTwoFields control;
    EnableWindow(control.Row, FALSE);
    SetFocus(control.Before);
    CHECK(control.Walk(2) == "after before");
    EnableWindow(control.Row, TRUE);
    ShowWindow(control.Row, SW_HIDE);
    SetFocus(control.Before);
    CHECK(control.WalkBack(2) == "after before");
}

TEST_CASE("A field that the host brought to the front is walked, too") {
    WithTwoFields control;
    SetWindowPos(control.Second, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    SetFocus(control.Row);
    CHECK(control.Walk(4) == "second first after before");
    CHECK(control.WalkBack(5) == "after first second row before");
}

TEST_CASE("A panel on the page that lets dialogs walk it is walked") {
    ControlInDialog control;
    const HWND panel = CreateWindowExW(WS_EX_CONTROLPARENT, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 10, 40,
                                       150, 50, control.Row, nullptr, nullptr, nullptr);
    control.Name(MakeField(panel, 5), "nested");
    SetFocus(control.Row);
    CHECK(control.Walk(2) == "nested after");
    CHECK(control.WalkBack(2) == "nested row");
}

TEST_CASE("The first field of the page becomes what a dialog makes of the field with the focus") {
    ControlInDialog control;
    const HWND field = control.AddField("field", 20);
    SetWindowTextW(field, L"abc");
    SetFocus(control.Row);
    CHECK(control.Walk(1) == "field");
    DWORD begin = 0, end = 0;
    SendMessageW(field, EM_GETSEL, reinterpret_cast<WPARAM>(&begin), reinterpret_cast<LPARAM>(&end));
    CHECK(begin == 0);
    CHECK(end == 3);
}

TEST_CASE("A button of the page that Tab comes to is the one that Enter presses") {
    ControlInDialog control;
    const HWND button = CreateWindowExW(0, L"BUTTON", L"Go", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 20, 60, 50,
                                        20, control.Row, nullptr, nullptr, nullptr);
    control.Name(button, "button");
    SetFocus(control.Row);
    CHECK(control.Walk(1) == "button");
    CHECK((SendMessageW(button, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) != 0);
}

TEST_CASE("What makes the row a stop is none of the windows that move with the tabs") {
    ControlInDialog control;
    REQUIRE(GetWindow(control.Row, GW_CHILD));
    control.Tab->put_ActiveTab(1);
    control.Tab->put_ActiveTab(0);
    SetFocus(control.Before);
    CHECK(control.Walk(2) == "row after");
    RECT place = {};
    GetWindowRect(GetWindow(control.Row, GW_CHILD), &place);
    MapWindowPoints(nullptr, control.Row, reinterpret_cast<POINT*>(&place), 2);
    CHECK(place.left == 0);
    control.Tab->put_ActiveTab(1);
    GetWindowRect(GetWindow(control.Row, GW_CHILD), &place);
    MapWindowPoints(nullptr, control.Row, reinterpret_cast<POINT*>(&place), 2);
    CHECK(place.left == 0);
}

namespace {

// The system's small host in a window of the dialog: fields before and after it, one on the page.
struct InHostingLibrary : LooseControl {
    explicit InHostingLibrary(DWORD extendedStyle) {
        Before = MakeField(Dialog.Window(), 0);
        Host = CreateWindowExW(extendedStyle, L"STATIC", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 300,
                               200, Dialog.Window(), nullptr, nullptr, nullptr);
        After = MakeField(Dialog.Window(), 100);
        REQUIRE(library_.Attach(Object(), Host) == S_OK);
        As<IOleWindow>()->GetWindow(&Row);
        OnPage = MakeField(Row, 20);
        Tab->put_TabCount(2);
    }
    ~InHostingLibrary() { DestroyWindow(Host); }

    HWND Walk(HWND from, bool back) const {
        SetFocus(from);
        std::optional<HeldKey> shift;
        if (back) shift.emplace(VK_SHIFT);
        Dialog.Key(WM_KEYDOWN, VK_TAB);
        return GetFocus();
    }

    PlainDialog Dialog;
    HWND Before, Host, After, Row = nullptr, OnPage;

private:
    HostingLibrary library_;
};

} // namespace

TEST_CASE("In the system's hosting library Tab walks the row and the page where the host's window lets it") {
    const InHostingLibrary control(WS_EX_CONTROLPARENT);
    CHECK(control.Walk(control.Before, false) == control.Row);
    CHECK(control.Walk(control.Row, false) == control.OnPage);
    CHECK(control.Walk(control.OnPage, false) == control.After);
    CHECK(control.Walk(control.After, true) == control.OnPage);
    CHECK(control.Walk(control.OnPage, true) == control.Row);
    CHECK(control.Walk(control.Row, true) == control.Before);
}

TEST_CASE(
    "In a host's window that lets nobody walk it Tab leaves the page at its end, and the control at its "
    "row") {
    const InHostingLibrary control(0);
    CHECK(control.Walk(control.Row, false) == control.OnPage);
    CHECK(control.Walk(control.OnPage, false) == control.After);
    CHECK(control.Walk(control.OnPage, true) == control.Row);
    CHECK(control.Walk(control.Row, true) == control.Before);
}

} // namespace vantik

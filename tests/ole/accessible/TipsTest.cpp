// Tooltips over the row, as users see them: the windows of the system's tooltip class that show.
#include <doctest/doctest.h>

#include <windows.h>

#include <commctrl.h>

#include <algorithm>

#include "host/ControlOnForm.h"
#include "host/Input.h"
#include "hostile/PatchedImport.h"
#include "ole/accessible/ReadControl.h"

namespace vantik {

namespace {

constexpr UINT DoubleClick = 30; // milliseconds, by which all delays go
UINT WINAPI QuickDoubleClick() { return DoubleClick; }

HMODULE BuiltModule() { return GetModuleHandleW(L"VantikFrameTab.ocx"); }

BOOL CALLBACK FindTip(HWND window, LPARAM found) {
    wchar_t name[32] = {};
    GetClassNameW(window, name, 32);
    if (std::wstring_view(name) != TOOLTIPS_CLASSW || !IsWindowVisible(window)) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

HWND Tip() {
    HWND tip = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), FindTip, reinterpret_cast<LPARAM>(&tip));
    return tip;
}

RECT PlaceOf(HWND window) {
    RECT place = {};
    GetWindowRect(window, &place);
    return place;
}

// As a test can print it.
std::string Plain(std::wstring_view text) {
    std::string plain;
    for (const wchar_t c : text) plain += static_cast<char>(c);
    return plain;
}

// What shows within the time; empty for nothing.
std::string TipWithin(DWORD milliseconds) {
    const DWORD start = GetTickCount();
    while (!Tip() && GetTickCount() - start < milliseconds) {
        MSG message;
        if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
        else
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
    }
    wchar_t text[2000] = {};
    GetWindowTextW(Tip(), text, 2000);
    return Plain(text);
}

void Pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

constexpr DWORD LongEnough = 5000, NoLonger = 10 * DoubleClick;

// Seven tabs of 60 pixels in the middle of the screen, of which five show: the second one with a long caption.
struct Tipped : ReadControl {
    Tipped() : ReadControl(7) {
        HWND form = InWindow->Site().Window;
        SetWindowPos(form, nullptr, 300, 300, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        SetForegroundWindow(form);
        Caption(0, L"One");
        Caption(1, Long);
        Pump();
    }
    ~Tipped() { SetCursorPos(900, 700); }

    void PointAt(POINT pixel) const {
        POINT screen = pixel;
        ClientToScreen(Window(), &screen);
        SetCursorPos(screen.x, screen.y);
        InWindow->Move(pixel);
    }
    POINT MiddleOf(const Node& node) const {
        const RECT place = node.Place();
        POINT middle = {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
        ScreenToClient(Window(), &middle);
        return middle;
    }
    POINT OnBar(std::size_t tab) const { return MiddleOf(Child(tab)); }
    std::string TipAt(POINT pixel, DWORD within = LongEnough) const {
        PointAt(OnPage);
        Pump();
        PointAt(pixel);
        return TipWithin(within);
    }
    bool NoneAt(POINT pixel) const { return TipAt(pixel, NoLonger).empty(); }

    static constexpr POINT OnPage = {200, 150};
    static constexpr const wchar_t* Long = L"A caption that no bar of 60 pixels has room for";

    PatchedImport Delays{BuiltModule(), "GetDoubleClickTime",
                         reinterpret_cast<const void*>(&QuickDoubleClick)};
};

} // namespace

TEST_SUITE_BEGIN("tips");

TEST_CASE("a bar that shows only a part of its caption tells all of it, any other tells nothing") {
    const Tipped control;
    CHECK(control.TipAt(control.OnBar(1)) == Plain(Tipped::Long));
    CHECK(control.NoneAt(control.OnBar(0)));
    CHECK(control.NoneAt(Tipped::OnPage));
    control.Caption(0, L"  ");
    CHECK(control.NoneAt(control.OnBar(0)));
}

TEST_CASE("a caption that is cut off instead of being shortened is told, too") {
    const Tipped control;
    control.Tab->put_CaptionXjust(30); // out of the bar
    CHECK(control.TipAt(control.OnBar(0)) == "One");
    control.Tab->put_CaptionXjust(0);
    control.Tab->put_CaptionYjust(15);
    CHECK(control.TipAt(control.OnBar(0)) == "One");
    control.Tab->put_CaptionYjust(0);
    CHECK(control.NoneAt(control.OnBar(0)));
    control.Tab->put_TabPos(WindowLeft);
    CHECK(control.NoneAt(control.OnBar(0)));
    control.Tab->put_CaptionXjust(15);
    CHECK(control.TipAt(control.OnBar(0)) == "One");
}

TEST_CASE("the buttons tell their names") {
    const Tipped control;
    control.PointAt(control.OnBar(1));
    const POINT button = control.MiddleOf(control.Child(1).Children().front());
    CHECK(control.TipAt(button) == "Close " + Plain(Tipped::Long));
    CHECK(control.TipAt(control.OnBar(7)) == "Previous");
    CHECK(control.TipAt(control.OnBar(8)) == "Next");
    CHECK(control.TipAt(control.OnBar(9)) == "Tab menu");
    control.Tab->put_DelButton(VARIANT_FALSE);
    CHECK(control.TipAt(button) == Plain(Tipped::Long)); // the bar, where no button shows
}

TEST_CASE("a tooltip stands on the side of the row, off its bar and the pointer") {
    for (const dTabPos side : {Windowtop, WindowBottom, WindowLeft, WindowRight}) {
        CAPTURE(side);
        const Tipped control;
        control.Tab->put_TabPos(side);
        const POINT at = control.OnBar(1);
        REQUIRE(control.TipAt(at) == Plain(Tipped::Long));
        const RECT tip = PlaceOf(Tip()), bar = control.Child(1).Place();
        CAPTURE(tip.left);
        CAPTURE(tip.top);
        RECT common = {};
        CHECK(!IntersectRect(&common, &tip, &bar));
        if (side == Windowtop) CHECK(tip.bottom <= bar.top);
        if (side == WindowBottom) CHECK(tip.top >= bar.bottom);
        if (side == WindowLeft) CHECK(tip.right <= bar.left);
        if (side == WindowRight) CHECK(tip.left >= bar.right);
    }
}

TEST_CASE("a tooltip takes neither the activation nor the focus nor the pointer") {
    const Tipped control;
    SetFocus(control.Window());
    REQUIRE(!control.TipAt(control.OnBar(1)).empty());
    CHECK(GetFocus() == control.Window());
    CHECK(GetActiveWindow() == control.InWindow->Site().Window);
    CHECK((GetWindowLongPtrW(Tip(), GWL_EXSTYLE) & WS_EX_NOACTIVATE) != 0);
    const RECT place = PlaceOf(Tip());
    CHECK(SendMessageW(Tip(), WM_NCHITTEST, 0, MAKELPARAM(place.left + 2, place.top + 2)) == HTTRANSPARENT);
}

TEST_CASE("a tooltip goes when the pointer leaves, another one comes over another part") {
    const Tipped control;
    control.Caption(2, L"Another caption that no bar has room for");
    REQUIRE(!control.TipAt(control.OnBar(1)).empty());
    control.PointAt({control.OnBar(1).x + 3, control.OnBar(1).y});
    CHECK(Tip()); // the same bar
    control.PointAt(control.OnBar(2));
    CHECK(!Tip());
    CHECK(TipWithin(LongEnough) == "Another caption that no bar has room for");
    control.PointAt(Tipped::OnPage);
    CHECK(!Tip());
    REQUIRE(!control.TipAt(control.OnBar(9)).empty());
    SendMessageW(control.Window(), WM_MOUSELEAVE, 0, 0);
    CHECK(!Tip());
}

TEST_CASE("a press, a key, the wheel, the host's switch and a disabled control end a tooltip") {
    const Tipped control;
    const auto ends = [&](const std::string& name, const std::function<void()>& deed) {
        CAPTURE(name);
        REQUIRE(control.TipAt(control.OnBar(1)) == Plain(Tipped::Long));
        deed();
        CHECK(!Tip());
        CHECK(TipWithin(NoLonger).empty()); // also while the pointer stays
    };
    const POINT at = control.OnBar(1);
    ends("a press", [&] { control.InWindow->Click(at); });
    ends("a key", [&] { SendMessageW(control.Window(), WM_KEYDOWN, VK_RIGHT, 0); });
    ends("the wheel", [&] { SendMessageW(control.Window(), WM_MOUSEWHEEL, MAKEWPARAM(0, 120), 0); });
    ends("the host's switch", [&] {
        control.Tab->put_ActiveTab(0);
        UpdateWindow(control.Window());
    });
    ends("another caption", [&] {
        control.Caption(1, L"Another long caption that no bar has room for");
        UpdateWindow(control.Window());
        control.Caption(1, Tipped::Long);
    });
    ends("disabling", [&] {
        EnableWindow(control.Window(), FALSE);
        EnableWindow(control.Window(), TRUE);
    });
    ends("hiding", [&] {
        ShowWindow(control.Window(), SW_HIDE);
        ShowWindow(control.Window(), SW_SHOWNA);
    });
}

TEST_CASE("a tooltip ends by itself after the system's time") {
    const Tipped control;
    REQUIRE(!control.TipAt(control.OnBar(1)).empty());
    const DWORD start = GetTickCount();
    while (Tip() && GetTickCount() - start < LongEnough) Pump();
    CHECK(!Tip());
    CHECK(GetTickCount() - start >= 5 * DoubleClick);
    CHECK(TipWithin(NoLonger).empty());
}

TEST_CASE("no tooltip shows on a control that is disabled, or whose form is not the active one") {
    const Tipped control;
    EnableWindow(control.InWindow->Site().Window, FALSE);
    CHECK(control.NoneAt(control.OnBar(9)));
    EnableWindow(control.InWindow->Site().Window, TRUE);
    const HWND other = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 10, 10, nullptr,
                                       nullptr, nullptr, nullptr);
    SetActiveWindow(other);
    CHECK(control.NoneAt(control.OnBar(9)));
    DestroyWindow(other);
    SetActiveWindow(control.InWindow->Site().Window);
    CHECK(control.TipAt(control.OnBar(9)) == "Tab menu");
}

TEST_CASE("while a form is designed no tooltip shows, at run time one does that tells its form nothing") {
    for (const bool userMode : {false, true}) {
        HostSwitches switches;
        switches.UserMode = userMode;
        int told = 0;
        FormHandlers handlers;
        handlers.Message = [&](UINT message, WPARAM, LPARAM lParam) -> std::optional<LRESULT> {
            // Some systems ask the window under any tooltip how to draw it.
            told += message == WM_NOTIFY &&
                    reinterpret_cast<const NMHDR*>(lParam)->code != static_cast<UINT>(NM_CUSTOMDRAW);
            return std::nullopt;
        };
        ControlOnForm test(switches, handlers);
        test.OpenWithTabs(3);
        const PatchedImport delays(BuiltModule(), "GetDoubleClickTime",
                                   reinterpret_cast<const void*>(&QuickDoubleClick));
        const RECT menu = Node::OfWindow(test.Form().ControlWindow())->Children().at(5).Place();
        POINT middle = {(menu.left + menu.right) / 2, (menu.top + menu.bottom) / 2};
        ScreenToClient(test.Form().ControlWindow(), &middle);
        MovePointer(test.Form(), middle);
        CHECK(TipWithin(userMode ? LongEnough : NoLonger) == (userMode ? "Tab menu" : ""));
        CHECK(told == 0);
    }
}

TEST_CASE("marks show where they are no marks, and a long caption takes several lines and not too many") {
    const Tipped control;
    control.Caption(1, L"Fish && Chips & all that goes with them");
    CHECK(control.TipAt(control.OnBar(1)) == "Fish & Chips  all that goes with them");
    CHECK((GetWindowLongPtrW(Tip(), GWL_STYLE) & TTS_NOPREFIX) != 0);
    const LONG line = PlaceOf(Tip()).bottom - PlaceOf(Tip()).top;
    std::wstring words;
    for (int i = 0; i < 400; ++i) words += L"words ";
    control.Caption(1, words.c_str());
    const std::string text = control.TipAt(control.OnBar(1));
    CHECK(text.size() == 1003);
    CHECK(text.substr(1000) == "...");
    const RECT tip = PlaceOf(Tip());
    CHECK(tip.right - tip.left <= GetSystemMetrics(SM_CXSCREEN) / 3 + 40);
    CHECK(tip.bottom - tip.top > 2 * line);
}

TEST_CASE("the tooltip's window goes with the control's") {
    Tipped control;
    REQUIRE(!control.TipAt(control.OnBar(1)).empty());
    const HWND tip = Tip();
    QueryFor<IOleInPlaceObject>(&control.InWindow->Object())->InPlaceDeactivate();
    CHECK(!IsWindow(tip));
    REQUIRE(control.InWindow->Object().DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, nullptr, 0, nullptr,
                                              nullptr) == S_OK);
}

namespace {

const void* createWindow = nullptr;
bool refuses = false;

HWND WINAPI RefuseTips(DWORD extended, LPCWSTR name, LPCWSTR title, DWORD style, int x, int y, int width,
                       int height, HWND parent, HMENU menu, HINSTANCE module, LPVOID argument) {
    if (refuses && name == std::wstring_view(TOOLTIPS_CLASSW)) return nullptr;
    return reinterpret_cast<decltype(&CreateWindowExW)>(const_cast<void*>(createWindow))(
        extended, name, title, style, x, y, width, height, parent, menu, module, argument);
}

} // namespace

TEST_CASE("where the system has no tooltip to give, the control does without, and tries again") {
    const Tipped control;
    const PatchedImport creating(BuiltModule(), "CreateWindowExW",
                                 reinterpret_cast<const void*>(&RefuseTips));
    createWindow = creating.Original();
    refuses = true;
    CHECK(control.NoneAt(control.OnBar(1)));
    control.InWindow->Click(control.OnBar(1));
    CHECK(control.Active() == 1);
    refuses = false;
    CHECK(control.TipAt(control.OnBar(1)) == Plain(Tipped::Long));
}

TEST_SUITE_END();

} // namespace vantik

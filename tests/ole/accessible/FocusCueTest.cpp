// The rectangle that shows where the keyboard is: on the window and nowhere else.
#include <doctest/doctest.h>

#include "hostile/PatchedImport.h"
#include "ole/accessible/ReadControl.h"

namespace vantik {

namespace {

using test::Pixels;

// A field beside the control that takes the focus away.
struct CuedControl : ReadControl {
    explicit CuedControl(short tabs = 3) : ReadControl(tabs) { Blur(); }

    void Focus() const { SetFocus(Window()); }
    void Blur() const { SetFocus(field_); }
    Pixels Shown() const { return InWindow->Picture(); }

    // Where the tab lies, three pixels within its edges.
    RECT InsideOf(std::size_t tab) const {
        RECT place = Child(tab).Place();
        MapWindowPoints(nullptr, Window(), reinterpret_cast<POINT*>(&place), 2);
        InflateRect(&place, -3, -3);
        return place;
    }

private:
    HWND field_ = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 0, 5, 5, GetParent(Window()),
                                  nullptr, nullptr, nullptr);
};

bool IsOnEdge(const RECT& r, LONG x, LONG y, LONG thickness) {
    const bool isInside = x >= r.left && x < r.right && y >= r.top && y < r.bottom;
    const bool isDeep = x >= r.left + thickness && x < r.right - thickness && y >= r.top + thickness &&
                        y < r.bottom - thickness;
    return isInside && !isDeep;
}

Pixels Dotted(Pixels picture, const RECT& place) {
    for (LONG y = 0; y < picture.Height; ++y)
        for (LONG x = 0; x < picture.Width; ++x)
            if (IsOnEdge(place, x, y, 1)) picture.Set(x, y, (x + y) % 2 ? 0xFFFFFF : 0);
    return picture;
}

Pixels Framed(Pixels picture, const RECT& place, std::uint32_t colour) {
    for (LONG y = 0; y < picture.Height; ++y)
        for (LONG x = 0; x < picture.Width; ++x)
            if (IsOnEdge(place, x, y, 2)) picture.Set(x, y, colour);
    return picture;
}

Pixels Copy(const CuedControl& control, void (*draw)(const CuedControl&, HDC)) {
    RECT client = {};
    GetClientRect(control.Window(), &client);
    const test::TestSurface surface(client.right, client.bottom);
    draw(control, surface.DC());
    return surface.Read();
}

void Print(const CuedControl& control, HDC dc) {
    SendMessageW(control.Window(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
}

void DrawView(const CuedControl& control, HDC dc) {
    RECTL bounds = {0, 0, 380, 200};
    control.As<IViewObject>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds, nullptr,
                                    nullptr, 0);
}

// With a system behind the control's imports that keeps what windows show of the keyboard, which not every one does.
LRESULT uiState = 0;

LRESULT WINAPI KeepUIState(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CHANGEUISTATE: return SendMessageW(window, WM_UPDATEUISTATE, wParam, lParam);
    case WM_UPDATEUISTATE: uiState = LOWORD(wParam) == UIS_SET ? HIWORD(wParam) : 0; return 0;
    case WM_QUERYUISTATE: return uiState;
    default: return DefWindowProcW(window, message, wParam, lParam);
    }
}

struct UIState {
    UIState() { uiState = 0; }
    void ShowCues(const CuedControl& control, bool show) const {
        const WORD what = show ? UIS_CLEAR : UIS_SET;
        SendMessageW(control.Window(), WM_CHANGEUISTATE, MAKEWPARAM(what, UISF_HIDEFOCUS), 0);
    }
    PatchedImport Procedure{GetModuleHandleW(L"VantikFrameTab.ocx"), "DefWindowProcW",
                            reinterpret_cast<const void*>(&KeepUIState)};
};

// With a system behind the control's imports in which high contrast is on.
constexpr std::uint32_t Dark = 0x0A0B0C, Light = 0xF1F2F3;
bool isTextDark = true;

BOOL WINAPI HighContrastIsOn(UINT, UINT, void* answer, UINT) {
    static_cast<HIGHCONTRASTW*>(answer)->dwFlags = HCF_AVAILABLE | HCF_HIGHCONTRASTON;
    return TRUE;
}

COLORREF Reversed(std::uint32_t colour) noexcept {
    return RGB(colour >> 16 & 0xFF, colour >> 8 & 0xFF, colour & 0xFF);
}

DWORD WINAPI UsersColour(int number) {
    return Reversed((number == COLOR_WINDOWTEXT) == isTextDark ? Dark : Light);
}

HBRUSH WINAPI UsersBrush(int number) {
    static const HBRUSH brushes[] = {CreateSolidBrush(Reversed(Dark)), CreateSolidBrush(Reversed(Light))};
    return brushes[(number == COLOR_WINDOWTEXT) == isTextDark ? 0 : 1];
}

struct HighContrast {
    HMODULE Module = GetModuleHandleW(L"VantikFrameTab.ocx");
    PatchedImport Parameters{Module, "SystemParametersInfoW",
                             reinterpret_cast<const void*>(&HighContrastIsOn)};
    PatchedImport Colours{Module, "GetSysColor", reinterpret_cast<const void*>(&UsersColour)};
    PatchedImport Brushes{Module, "GetSysColorBrush", reinterpret_cast<const void*>(&UsersBrush)};
};

} // namespace

TEST_CASE("dots inside the active bar show the focus, and go with it") {
    const CuedControl control;
    const Pixels plain = control.Shown();
    control.Focus();
    CHECK(test::Difference(control.Shown(), Dotted(plain, control.InsideOf(0))) == "same");
    control.Blur();
    CHECK(test::Difference(control.Shown(), plain) == "same");
}

TEST_CASE("under design they mark the tab that controls are dropped onto, wherever the focus is") {
    const CuedControl control;
    const Pixels plain = control.Shown();
    control.BeDesigned(true);
    CHECK(test::Difference(control.Shown(), Dotted(plain, control.InsideOf(0))) == "same");
    CHECK(test::Difference(Copy(control, Print), plain) == "same");
    CHECK(test::Difference(Copy(control, DrawView), plain) == "same");
    control.Focus();
    CHECK(test::Difference(control.Shown(), Dotted(plain, control.InsideOf(0))) == "same");
    control.Blur();
    control.BeDesigned(false);
    CHECK(test::Difference(control.Shown(), plain) == "same");
    control.BeDesigned(true);
    control.Enable(0, false); // leaves none active
    CHECK(control.Active() == -1);
    const Pixels without = control.Shown();
    control.BeDesigned(false);
    CHECK(test::Difference(control.Shown(), without) == "same");
}

TEST_CASE("on all four sides they follow the active tab, however it comes to be so") {
    for (const auto side : {WindowLeft, WindowRight, Windowtop, WindowBottom}) {
        CAPTURE(side);
        const CuedControl control;
        control.Tab->put_TabPos(side);
        control.Tab->put_BarWidth(45); // three bars fit on every side
        control.Focus();
        SendMessageW(control.Window(), WM_KEYDOWN, VK_RIGHT, 0);
        const Pixels byKey = control.Shown();
        control.Blur();
        CHECK(test::Difference(byKey, Dotted(control.Shown(), control.InsideOf(1))) == "same");
        control.Focus();
        control.Tab->put_ActiveTab(2);
        const Pixels byProperty = control.Shown();
        control.Tab->put_BarWidth(35);
        const Pixels narrower = control.Shown();
        control.Blur();
        CHECK(test::Difference(narrower, Dotted(control.Shown(), control.InsideOf(2))) == "same");
        control.Tab->put_BarWidth(45);
        CHECK(test::Difference(byProperty, Dotted(control.Shown(), control.InsideOf(2))) == "same");
    }
}

TEST_CASE("they show while the user's windows show such cues") {
    const CuedControl control;
    const UIState state;
    const Pixels plain = control.Shown();
    control.Focus();
    state.ShowCues(control, false);
    CHECK(test::Difference(control.Shown(), plain) == "same");
    state.ShowCues(control, true);
    const Pixels dotted = Dotted(plain, control.InsideOf(0));
    CHECK(test::Difference(control.Shown(), dotted) == "same");
    state.ShowCues(control, false);
    CHECK(test::Difference(control.Shown(), plain) == "same");
}

TEST_CASE("keys of the control make the user's windows show them") {
    const CuedControl control;
    const UIState state;
    control.Focus();
    state.ShowCues(control, false);
    SendMessageW(control.Window(), WM_KEYDOWN, VK_RIGHT, 0);
    const Pixels shown = control.Shown();
    control.Blur();
    CHECK(test::Difference(shown, Dotted(control.Shown(), control.InsideOf(1))) == "same");
}

TEST_CASE("they are no part of what the control prints, draws or gives away") {
    const CuedControl control;
    const Pixels printed = Copy(control, Print), drawn = Copy(control, DrawView);
    control.Focus();
    control.Shown();
    CHECK(test::Difference(Copy(control, Print), printed) == "same");
    CHECK(test::Difference(Copy(control, DrawView), drawn) == "same");
}

TEST_CASE("what is painted of them in pieces is what is painted at once") {
    const CuedControl control;
    control.Focus();
    const Pixels atOnce = control.Shown();
    for (int x = 0; x < 90; x += 7) {
        const RECT piece = {x, 0, x + 5, 30};
        InvalidateRect(control.Window(), &piece, FALSE);
        UpdateWindow(control.Window());
    }
    CHECK(test::Difference(control.Shown(), atOnce) == "same");
}

TEST_CASE("while no active bar shows they stand inside the row") {
    const CuedControl control(9);
    const Node next = control.Child(10);
    REQUIRE(next->accDoDefaultAction(next.Id()) == S_OK);
    const Pixels plain = control.Shown();
    control.Focus();
    RECT row = control.InsideOf(1);
    row.right = control.InsideOf(5).right;
    CHECK(test::Difference(control.Shown(), Dotted(plain, row)) == "same");
}

TEST_CASE("a control without tabs has nowhere to show them") {
    LooseControl empty;
    const WindowedControl window(empty.As<IUnknown>(), {10, 10, 390, 210});
    const Pixels plain = window.Picture();
    SetFocus(window.Window());
    CHECK(test::Difference(window.Picture(), plain) == "same");
}

TEST_CASE("in high contrast a frame of the user's colour that the bar sets off more stands in their place") {
    const CuedControl control;
    const Pixels plain = control.Shown();
    for (const bool textIsDark : {true, false}) {
        const HighContrast users;
        isTextDark = textIsDark;
        control.Focus();
        CHECK(test::Difference(control.Shown(), Framed(plain, control.InsideOf(0), Dark)) == "same");
        control.Blur();
        CHECK(test::Difference(control.Shown(), plain) == "same"); // the bars are light
    }
}

} // namespace vantik

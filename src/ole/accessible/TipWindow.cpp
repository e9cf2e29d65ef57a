#include "ole/accessible/TipWindow.h"

#include <commctrl.h>

#include <utility>

#include "ole/accessible/TipPlace.h"

namespace vantik {

namespace {

constexpr UINT_PTR TipNumber = 1;

// Its size is the one that every version of the library knows.
TTTOOLINFOW ToolOf(HWND window) noexcept {
    TTTOOLINFOW tool = {};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_TRACK | TTF_ABSOLUTE | TTF_TRANSPARENT;
    tool.hwnd = window;
    tool.uId = TipNumber;
    return tool;
}

LRESULT Tell(HWND tip, UINT message, WPARAM wParam, TTTOOLINFOW& tool) noexcept {
    return SendMessageW(tip, message, wParam, reinterpret_cast<LPARAM>(&tool));
}

// Most programs have the class already, by whichever version of the library they chose.
void RegisterTipClass(const SystemLibrary& library) noexcept {
    decltype(&InitCommonControlsEx) initialize = nullptr;
    library.Find("InitCommonControlsEx", initialize);
    const INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_TAB_CLASSES};
    if (initialize) initialize(&classes);
}

HWND CreateTip(HWND window) noexcept {
    return CreateWindowExW(WS_EX_TOPMOST | WS_EX_NOACTIVATE | WS_EX_TOOLWINDOW, TOOLTIPS_CLASSW, nullptr,
                           WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0, 0, 0, 0, window, nullptr, nullptr,
                           nullptr);
}

// The one that the part is on, without its task bar.
RECT ScreenAt(const RECT& part) noexcept {
    MONITORINFO screen = {};
    screen.cbSize = sizeof screen;
    if (GetMonitorInfoW(MonitorFromRect(&part, MONITOR_DEFAULTTONEAREST), &screen)) return screen.rcWork;
    return {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

// What an arrow covers of its square.
RECT PointerPicture() noexcept {
    POINT at = {};
    if (!GetCursorPos(&at)) return {};
    return {at.x, at.y, at.x + GetSystemMetrics(SM_CXCURSOR) * 3 / 8,
            at.y + GetSystemMetrics(SM_CYCURSOR) * 5 / 8};
}

SIZE SizeOf(HWND window) noexcept {
    RECT area = {};
    GetWindowRect(window, &area);
    return {area.right - area.left, area.bottom - area.top};
}

} // namespace

bool TipWindow::Sends(UINT message, LPARAM lParam) const noexcept {
    return message == WM_NOTIFY && tip_ && lParam && reinterpret_cast<const NMHDR*>(lParam)->hwndFrom == tip_;
}

// It belongs to the window's form, and goes with that.
bool TipWindow::Need(HWND window) noexcept {
    if (tip_ && of_ == window && IsWindow(tip_)) return true;
    Destroy();
    if (!library_) RegisterTipClass(library_.emplace(L"comctl32.dll"));
    TTTOOLINFOW tool = ToolOf(window);
    wchar_t none[] = L"";
    tool.lpszText = none;
    tip_ = CreateTip(window);
    of_ = window;
    if (tip_ && Tell(tip_, TTM_ADDTOOLW, 0, tool)) return true;
    Destroy();
    return false;
}

bool TipWindow::Show(HWND window, std::u16string& text, const RECT& part, std::int32_t side) noexcept {
    if (!Need(window)) return false;
    const RECT screen = ScreenAt(part);
    SendMessageW(tip_, TTM_SETMAXTIPWIDTH, 0, (screen.right - screen.left) / 3);
    TTTOOLINFOW tool = ToolOf(window);
    tool.lpszText = AsWide(text.data());
    Tell(tip_, TTM_UPDATETIPTEXTW, 0, tool);
    const auto size = static_cast<DWORD>(Tell(tip_, TTM_GETBUBBLESIZE, 0, tool));
    const POINT at = TipPlace(part, PointerPicture(), {LOWORD(size), HIWORD(size)}, side, screen);
    SendMessageW(tip_, TTM_TRACKPOSITION, 0, MAKELPARAM(at.x, at.y));
    Tell(tip_, TTM_TRACKACTIVATE, TRUE, tool);
    Place(part, side);
    return true;
}

// Not every system knows how large a tooltip becomes, and where exactly, before it shows.
void TipWindow::Place(const RECT& part, std::int32_t side) noexcept {
    const POINT at = TipPlace(part, PointerPicture(), SizeOf(tip_), side, ScreenAt(part));
    SetWindowPos(tip_, HWND_TOPMOST, at.x, at.y, 0, 0, SWP_NOSIZE | SWP_NOACTIVATE);
}

void TipWindow::Hide() noexcept {
    if (!tip_) return;
    TTTOOLINFOW tool = ToolOf(of_);
    Tell(tip_, TTM_TRACKACTIVATE, FALSE, tool);
}

// Only its own thread can destroy a window. On others it is left to itself, and the library with it.
void TipWindow::Destroy() noexcept {
    const HWND tip = std::exchange(tip_, nullptr);
    if (!tip || DestroyWindow(tip) || !IsWindow(tip)) return;
    PostMessageW(tip, WM_CLOSE, 0, 0);
    if (library_) library_->Keep();
}

} // namespace vantik

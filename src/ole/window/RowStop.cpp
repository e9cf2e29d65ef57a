#include "ole/window/RowStop.h"

#include <utility>

#include "platform/Module.h"

namespace vantik {

namespace {

constexpr wchar_t ClassName[] = L"VantikFrameTabStop";

// Where the class is known already this fails, and where it failed the next control tries again.
void RegisterRowStopClass() noexcept {
    WNDCLASSEXW description = {};
    description.cbSize = sizeof description;
    description.lpfnWndProc = RowStop::Procedure;
    description.hInstance = ThisModule();
    description.lpszClassName = ClassName;
    RegisterClassExW(&description);
}

RowStop* OwnerOf(HWND window) noexcept {
    return reinterpret_cast<RowStop*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

void LetDialogsWalk(HWND window, bool walk) noexcept {
    const LONG_PTR style = GetWindowLongPtrW(window, GWL_EXSTYLE);
    SetWindowLongPtrW(window, GWL_EXSTYLE,
                      walk ? style | WS_EX_CONTROLPARENT : style & ~LONG_PTR{WS_EX_CONTROLPARENT});
}

} // namespace

void UnregisterRowStopClass() noexcept { UnregisterClassW(ClassName, ThisModule()); }

void RowStop::Create(HWND control) noexcept {
    Destroy();
    RegisterRowStopClass();
    window_ = CreateWindowExW(WS_EX_NOPARENTNOTIFY, ClassName, nullptr, WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0,
                              0, 0, 0, control, nullptr, ThisModule(), nullptr);
    if (!window_) return;
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    LetDialogsWalk(control, true);
}

bool RowStop::Owns(HWND window) const noexcept {
    const auto procedure = reinterpret_cast<WNDPROC>(GetClassLongPtrW(window, GCLP_WNDPROC));
    return procedure == Procedure && OwnerOf(window) == this;
}

void RowStop::Destroy() noexcept {
    const HWND window = std::exchange(window_, nullptr);
    if (!window || !Owns(window)) return; // it has gone with the control's window
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    DestroyWindow(window);
}

LRESULT CALLBACK RowStop::Procedure(HWND window, UINT number, WPARAM wParam, LPARAM lParam) noexcept {
    if (number == WM_SETFOCUS) SetFocus(GetParent(window));
    if (number == WM_NCDESTROY && OwnerOf(window)) OwnerOf(window)->Lost();
    return DefWindowProcW(window, number, wParam, lParam);
}

// With the control's window, or by a host that clears away all that stands on that: then dialogs pass the control over, as
// they might search it for ever.
void RowStop::Lost() noexcept {
    LetDialogsWalk(GetParent(window_), false);
    window_ = nullptr;
}

// The host may have brought a window of the page to the front.
HWND RowStop::NextOnPage() const noexcept {
    if (!window_) return nullptr;
    const HWND control = GetParent(window_);
    if (GetWindow(control, GW_CHILD) != window_)
        SetWindowPos(window_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    const HWND next = GetNextDlgTabItem(control, window_, FALSE);
    return next == window_ ? nullptr : next;
}

} // namespace vantik

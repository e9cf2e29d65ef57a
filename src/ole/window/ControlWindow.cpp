#include "ole/window/ControlWindow.h"

#include "ole/com/Module.h"
#include "ole/control/Control.h"
#include "ole/window/WindowClass.h"
#include "platform/Module.h"
#include "platform/Shortage.h"

namespace vantik {

namespace {

constexpr wchar_t ClassName[] = L"VantikFrameTab";

HCURSOR Pointer() noexcept { return LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW)); }

// Where the class is known already this fails, and where it failed the next window tries again.
void RegisterControlWindowClass() noexcept {
    WNDCLASSEXW description = {};
    description.cbSize = sizeof description;
    description.lpfnWndProc = ControlWindow::Procedure;
    description.cbWndExtra = sizeof(LONG_PTR); // whether it counts
    description.hInstance = ThisModule();
    description.hCursor = Pointer();
    description.lpszClassName = ClassName;
    RegisterClassExW(&description);
}

// When the class was registered there may have been no pointer to be had.
void NeedPointer(HWND window) noexcept {
    if (window && !GetClassLongPtrW(window, GCLP_HCURSOR))
        SetClassLongPtrW(window, GCLP_HCURSOR, reinterpret_cast<LONG_PTR>(Pointer()));
}

void Count(HWND window) noexcept {
    LockModule();
    SetWindowLongPtrW(window, 0, TRUE);
}

void Uncount(HWND window) noexcept {
    if (SetWindowLongPtrW(window, 0, FALSE)) UnlockModule();
}

ControlWindow* OwnerOf(HWND window) noexcept {
    return reinterpret_cast<ControlWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

} // namespace

void UnregisterControlWindowClass() noexcept { UnregisterClassW(ClassName, ThisModule()); }

bool ControlWindow::Create(HWND parent, const RECT& position) noexcept {
    if (window_ && !Owns(window_)) Forget();
    RegisterControlWindowClass();
    CreateWindowExW(0, ClassName, nullptr, WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, position.left,
                    position.top, position.right - position.left, position.bottom - position.top, parent,
                    nullptr, ThisModule(), this);
    NeedPointer(window_);
    return window_ != nullptr;
}

void ControlWindow::Move(const RECT& position) noexcept {
    SetWindowPos(window_, nullptr, position.left, position.top, position.right - position.left,
                 position.bottom - position.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void ControlWindow::Show(bool visible) noexcept {
    if (window_) ShowWindow(window_, visible ? SW_SHOWNA : SW_HIDE);
}

bool ControlWindow::Owns(HWND window) const noexcept {
    const auto procedure = reinterpret_cast<WNDPROC>(GetClassLongPtrW(window, GCLP_WNDPROC));
    const ControlWindow* const owner = OwnerOf(window);
    return procedure == Procedure && (!owner || owner == this);
}

// Only its own thread can destroy a window. On others it is left to itself, and closes when its thread comes by.
void ControlWindow::Destroy() noexcept {
    const HWND window = window_;
    if (!window) return;
    if (Owns(window) && !DestroyWindow(window)) PostMessageW(window, WM_CLOSE, 0, 0);
    if (window_ != window) return; // it was detached on its last message
    if (!Owns(window)) return Forget();
    Detach();
}

// The window has gone without its last message: somebody who stands in front of it kept that. Its number may be another
// window's by now.
void ControlWindow::Forget() noexcept {
    window_ = nullptr;
    UnlockModule();
}

// Nothing here is touched any more once the reference is kept: the window's thread may end the control at once.
bool ControlWindow::Keeps(IUnknown& lastReference) noexcept {
    const HWND window = window_;
    const DWORD thread = window ? GetWindowThreadProcessId(window, nullptr) : 0;
    if (!thread || thread == GetCurrentThreadId()) return false;
    kept_ = &lastReference;
    PostMessageW(window, WM_NULL, 0, 0);
    return true;
}

// Code of others that ran before the window's first message may have made another one already.
bool ControlWindow::Attach(HWND window) noexcept {
    if (window_) return false;
    window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    return true;
}

void ControlWindow::Detach() noexcept {
    if (!window_) return;
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    window_ = nullptr;
}

LRESULT CALLBACK ControlWindow::Procedure(HWND window, UINT number, WPARAM wParam, LPARAM lParam) noexcept {
    if (number == WM_NCCREATE) {
        Count(window);
        const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        if (!static_cast<ControlWindow*>(creation->lpCreateParams)->Attach(window)) return FALSE;
    }
    const LRESULT result = Process({window, number, wParam, lParam});
    if (number == WM_NCDESTROY) Uncount(window);
    return result;
}

LRESULT ControlWindow::Process(const Message& message) noexcept {
    ControlWindow* owner = OwnerOf(message.Window);
    const auto last = ComPtr<IUnknown>::Adopt(owner ? owner->kept_.exchange(nullptr) : nullptr);
    if (owner && !last) return owner->Dispatch(message);
    return DefWindowProcW(message.Window, message.Number, message.WParam, message.LParam);
}

// The control outlives the message, whatever the host does in it.
LRESULT ControlWindow::Dispatch(const Message& message) noexcept {
    const ComPtr<IUnknown> alive(&control_.Controlling);
    const auto frame = control_.Site.SimpleFrame();
    const LRESULT result = frame ? Filtered(*frame.Get(), message) : HandleOrDefault(message);
    if (message.Number == WM_NCDESTROY && window_ == message.Window) Detach();
    return result;
}

LRESULT ControlWindow::Filtered(ISimpleFrameSite& frame, const Message& message) noexcept {
    LRESULT result = 0;
    DWORD cookie = 0;
    const auto [window, number, wParam, lParam] = message;
    if (frame.PreMessageFilter(window, number, wParam, lParam, &result, &cookie) == S_FALSE) return result;
    result = HandleOrDefault(message);
    frame.PostMessageFilter(window, number, wParam, lParam, &result, cookie);
    return result;
}

// A run-time error ends the operation, and no caller is there to be told of it.
LRESULT ControlWindow::HandleOrDefault(const Message& message) noexcept {
    try {
        if (const auto answer = handler_.Handle(message)) return *answer;
    } catch (...) {
        TellIfShortage();
        handler_.Failed(message);
        return 0;
    }
    return DefWindowProcW(message.Window, message.Number, message.WParam, message.LParam);
}

} // namespace vantik

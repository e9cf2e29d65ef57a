#include "host/FormWindow.h"

#include "host/HostError.h"

namespace vantik {

namespace {

constexpr wchar_t ClassName[] = L"VantikHostForm";
constexpr DWORD Style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
constexpr DWORD PieceStyle = WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;

HINSTANCE Instance() noexcept { return GetModuleHandleW(nullptr); }

void RegisterFormClass(WNDPROC procedure) {
    WNDCLASSEXW description = {};
    if (GetClassInfoExW(Instance(), ClassName, &description)) return;
    description.cbSize = sizeof description;
    description.lpfnWndProc = procedure;
    description.hInstance = Instance();
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    description.lpszClassName = ClassName;
    if (!RegisterClassExW(&description) &&
        GetLastError() != ERROR_CLASS_ALREADY_EXISTS) // another thread was first
        throw HostError("cannot register the form's window class");
}

SIZE OuterSize(SIZE client, bool hasMenu = false) noexcept {
    RECT outer = {0, 0, client.cx, client.cy};
    AdjustWindowRectEx(&outer, Style, hasMenu, 0);
    return {outer.right - outer.left, outer.bottom - outer.top};
}

} // namespace

FormWindow::FormWindow(const std::wstring& title, SIZE clientSize, MessageHandler handler, HWND parent)
    : handler_(std::move(handler)) {
    RegisterFormClass(&FormWindow::Procedure);
    const SIZE outer = parent ? clientSize : OuterSize(clientSize);
    CreateWindowExW(parent ? WS_EX_CONTROLPARENT : 0, ClassName, title.c_str(), parent ? PieceStyle : Style,
                    0, 0, outer.cx, outer.cy, parent, nullptr, Instance(), this);
    if (!window_)
        throw HostError("cannot create a window: is there a display, or Wine's null graphics driver?");
}

FormWindow::~FormWindow() {
    handler_ = nullptr;
    if (window_) DestroyWindow(window_);
}

SIZE FormWindow::ClientSize() const noexcept {
    RECT client = {};
    GetClientRect(window_, &client);
    return {client.right, client.bottom};
}

void FormWindow::ResizeClient(SIZE size) {
    const SIZE outer = OuterSize(size, GetMenu(window_) != nullptr);
    SetWindowPos(window_, nullptr, 0, 0, outer.cx, outer.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::MoveTo(const RECT& place) {
    SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::Show(int command) {
    ShowWindow(window_, command);
    UpdateWindow(window_);
}

LRESULT CALLBACK FormWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        auto* form = static_cast<FormWindow*>(creation->lpCreateParams);
        form->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(form));
    }
    auto* form = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return form ? form->HandleMessage(window, message, wParam, lParam)
                : DefWindowProcW(window, message, wParam, lParam);
}

LRESULT FormWindow::HandleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    std::optional<LRESULT> answer;
    if (handler_) {
        const HRESULT result = Guarded([&] {
            const MessageHandler handler = handler_; // it may end the form
            answer = handler(message, wParam, lParam);
            return S_OK;
        });
        if (FAILED(result)) answer = 0;
    }
    if (message == WM_NCDESTROY && GetWindowLongPtrW(window, GWLP_USERDATA) != 0) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        window_ = nullptr;
    }
    return answer ? *answer : DefWindowProcW(window, message, wParam, lParam);
}

} // namespace vantik

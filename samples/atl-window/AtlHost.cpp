#include "AtlHost.h"

#include <commctrl.h>

namespace {

template <class Function>
Function FromAtl(const char* name) {
    const HMODULE atl = LoadLibraryW(L"atl.dll");
    const auto found = atl ? GetProcAddress(atl, name) : nullptr;
    if (!found) throw ComError{HRESULT_FROM_WIN32(GetLastError())};
    return reinterpret_cast<Function>(found);
}

Com<IUnknown> ControlIn(HWND window) {
    IUnknown* control = nullptr;
    Check(FromAtl<HRESULT(WINAPI*)(HWND, IUnknown**)>("AtlAxGetControl")(window, &control));
    return Com<IUnknown>(control);
}

// What windows on the pages tell and ask comes to the window around the control, which keeps it.
LRESULT CALLBACK PassOn(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR form) {
    const bool isForForm = message == WM_COMMAND || message == WM_NOTIFY ||
                           (message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC);
    if (!isForForm) return DefSubclassProc(window, message, wParam, lParam);
    return SendMessageW(reinterpret_cast<HWND>(form), message, wParam, lParam);
}

} // namespace

// The window's text names the control. Dialogs look for stops in it only with WS_EX_CONTROLPARENT.
AtlHost::AtlHost(HWND form, const wchar_t* programId) {
    FromAtl<BOOL(WINAPI*)()>("AtlAxWinInit")();
    window_ =
        CreateWindowExW(WS_EX_CONTROLPARENT, L"AtlAxWin", programId, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN,
                        0, 0, 100, 100, form, nullptr, nullptr, nullptr);
    SetWindowSubclass(window_, PassOn, 0, reinterpret_cast<DWORD_PTR>(form));
    control_ = ControlIn(window_);
    active_ = Query<IOleInPlaceActiveObject>(*control_);
}

HWND AtlHost::ControlWindow() const noexcept {
    HWND window = nullptr;
    active_->GetWindow(&window);
    return window;
}

bool AtlHost::UsesKey(MSG& message) const noexcept {
    const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
    return isKey && active_->TranslateAccelerator(&message) == S_OK;
}

#include "AtlHost.h"

namespace {

template <class Function>
Function FromAtl(const char* name) {
    static const HMODULE atl = LoadLibraryW(L"atl.dll");
    const auto found = atl ? GetProcAddress(atl, name) : nullptr;
    if (!found) throw ComError{HRESULT_FROM_WIN32(GetLastError())};
    return reinterpret_cast<Function>(found);
}

Com<IUnknown> ControlIn(HWND window) {
    IUnknown* control = nullptr;
    Check(FromAtl<HRESULT(WINAPI*)(HWND, IUnknown**)>("AtlAxGetControl")(window, &control));
    return Com<IUnknown>(control);
}

} // namespace

// The window's text names the control. Dialogs look for stops in it only with WS_EX_CONTROLPARENT.
AtlHost::AtlHost(HWND form, const wchar_t* programId) {
    FromAtl<BOOL(WINAPI*)()>("AtlAxWinInit")();
    window_ =
        CreateWindowExW(WS_EX_CONTROLPARENT, L"AtlAxWin", programId, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN,
                        0, 0, 100, 100, form, nullptr, nullptr, nullptr);
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

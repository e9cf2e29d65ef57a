#include "ole/InPlaceFace.h"

#include "ole/Control.h"
#include "ole/InputState.h"

namespace vantik {

namespace {

HRESULT WindowOf(const Control& control, HWND* window) noexcept {
    if (!window) return E_POINTER;
    *window = control.Activation.Window();
    return *window ? S_OK : E_FAIL;
}

} // namespace

InPlaceObjectFace::InPlaceObjectFace(Control& control) noexcept
    : Face(control.Controlling), control_(control) {}

STDMETHODIMP InPlaceObjectFace::GetWindow(HWND* window) noexcept { return WindowOf(control_, window); }
STDMETHODIMP InPlaceObjectFace::ContextSensitiveHelp(BOOL) noexcept { return S_OK; }

STDMETHODIMP InPlaceObjectFace::InPlaceDeactivate() noexcept {
    return GuardAndTell([&] { control_.Activation.InPlaceDeactivate(); });
}

STDMETHODIMP InPlaceObjectFace::UIDeactivate() noexcept {
    return GuardAndTell([&] { control_.Activation.UIDeactivate(); });
}

STDMETHODIMP InPlaceObjectFace::SetObjectRects(LPCRECT position, LPCRECT clip) noexcept {
    return GuardAndTell([&] { control_.Activation.SetRects(Required(position), clip); });
}

STDMETHODIMP InPlaceObjectFace::ReactivateAndUndo() noexcept { return INPLACE_E_NOTUNDOABLE; }

InPlaceActiveObjectFace::InPlaceActiveObjectFace(Control& control) noexcept
    : Face(control.Controlling), control_(control) {}

STDMETHODIMP InPlaceActiveObjectFace::GetWindow(HWND* window) noexcept { return WindowOf(control_, window); }
STDMETHODIMP InPlaceActiveObjectFace::ContextSensitiveHelp(BOOL) noexcept { return S_OK; }

// The two keys that switch tabs are the control's; the host decides about all others.
STDMETHODIMP InPlaceActiveObjectFace::TranslateAccelerator(LPMSG message) noexcept {
    if (!message) return E_POINTER;
    return Guard([&]() -> HRESULT {
        const bool own = message->message == WM_KEYDOWN && message->hwnd == control_.Activation.Window();
        if (own && control_.Activation.KeyDown(message->wParam)) return S_OK;
        const auto site = control_.Site.As<IOleControlSite>();
        return site && site->TranslateAccelerator(message, static_cast<DWORD>(ShiftState())) == S_OK
                   ? S_OK
                   : S_FALSE;
    });
}

STDMETHODIMP InPlaceActiveObjectFace::OnFrameWindowActivate(BOOL) noexcept { return S_OK; }
STDMETHODIMP InPlaceActiveObjectFace::OnDocWindowActivate(BOOL) noexcept { return S_OK; }
STDMETHODIMP InPlaceActiveObjectFace::ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) noexcept {
    return S_OK;
}
STDMETHODIMP InPlaceActiveObjectFace::EnableModeless(BOOL) noexcept { return S_OK; }

} // namespace vantik

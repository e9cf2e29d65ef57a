#include "ole/faces/InPlaceFace.h"

#include "ole/control/Control.h"
#include "ole/control/InputState.h"
#include "ole/window/Activation.h"

namespace vantik {

namespace {

HRESULT WindowOf(const Activation& activation, HWND* window) noexcept {
    if (!window) return E_POINTER;
    *window = activation.Window();
    return *window ? S_OK : E_FAIL;
}

} // namespace

InPlaceObjectFace::InPlaceObjectFace(Control& control, Activation& activation) noexcept
    : Face(control.Controlling), activation_(activation) {}

STDMETHODIMP InPlaceObjectFace::GetWindow(HWND* window) noexcept { return WindowOf(activation_, window); }
STDMETHODIMP InPlaceObjectFace::ContextSensitiveHelp(BOOL) noexcept { return S_OK; }

STDMETHODIMP InPlaceObjectFace::InPlaceDeactivate() noexcept {
    return GuardAndTell([&] { activation_.InPlaceDeactivate(); });
}

STDMETHODIMP InPlaceObjectFace::UIDeactivate() noexcept {
    return GuardAndTell([&] { activation_.UIDeactivate(); });
}

STDMETHODIMP InPlaceObjectFace::SetObjectRects(LPCRECT position, LPCRECT clip) noexcept {
    return GuardAndTell([&] { activation_.SetRects(Required(position), clip); });
}

STDMETHODIMP InPlaceObjectFace::ReactivateAndUndo() noexcept { return INPLACE_E_NOTUNDOABLE; }

InPlaceActiveObjectFace::InPlaceActiveObjectFace(Control& control, Activation& activation) noexcept
    : Face(control.Controlling), control_(control), activation_(activation) {}

STDMETHODIMP InPlaceActiveObjectFace::GetWindow(HWND* window) noexcept {
    return WindowOf(activation_, window);
}
STDMETHODIMP InPlaceActiveObjectFace::ContextSensitiveHelp(BOOL) noexcept { return S_OK; }

// The two keys that switch tabs are the control's; the host decides about all others.
STDMETHODIMP InPlaceActiveObjectFace::TranslateAccelerator(LPMSG message) noexcept {
    if (!message) return E_POINTER;
    return Guard([&]() -> HRESULT {
        const bool own = message->message == WM_KEYDOWN && message->hwnd == activation_.Window();
        if (own && activation_.KeyDown(message->wParam)) return S_OK;
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

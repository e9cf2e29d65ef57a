#include "ole/faces/InPlaceFace.h"

#include "ole/control/Control.h"
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
    : Face(control.Controlling), activation_(activation) {}

STDMETHODIMP InPlaceActiveObjectFace::GetWindow(HWND* window) noexcept {
    return WindowOf(activation_, window);
}
STDMETHODIMP InPlaceActiveObjectFace::ContextSensitiveHelp(BOOL) noexcept { return S_OK; }

STDMETHODIMP InPlaceActiveObjectFace::TranslateAccelerator(LPMSG message) noexcept {
    if (!message) return E_POINTER;
    return Guard([&] { return activation_.TranslateKey(*message) ? S_OK : S_FALSE; });
}

STDMETHODIMP InPlaceActiveObjectFace::OnFrameWindowActivate(BOOL) noexcept { return S_OK; }
STDMETHODIMP InPlaceActiveObjectFace::OnDocWindowActivate(BOOL) noexcept { return S_OK; }
STDMETHODIMP InPlaceActiveObjectFace::ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) noexcept {
    return S_OK;
}
STDMETHODIMP InPlaceActiveObjectFace::EnableModeless(BOOL) noexcept { return S_OK; }

} // namespace vantik

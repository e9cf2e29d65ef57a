#include "ole/faces/OleControlFace.h"

#include "ole/control/Control.h"

namespace vantik {

OleControlFace::OleControlFace(Control& control) noexcept : Face(control.Controlling), control_(control) {}

// Captions have no mnemonics: the letter that an ampersand underlines in a bar on the top or bottom answers to no key.
STDMETHODIMP OleControlFace::GetControlInfo(CONTROLINFO* info) noexcept {
    if (!info) return E_POINTER;
    info->hAccel = nullptr;
    info->cAccel = 0;
    info->dwFlags = 0;
    return S_OK;
}

STDMETHODIMP OleControlFace::OnMnemonic(LPMSG) noexcept { return S_OK; }

STDMETHODIMP OleControlFace::OnAmbientPropertyChange(DISPID property) noexcept {
    control_.Ambient.Changed(property);
    if (property == DISPID_AMBIENT_FONT || property == DISPID_UNKNOWN) control_.Document.FollowAmbientFont();
    if (property == DISPID_AMBIENT_USERMODE || property == DISPID_UNKNOWN) ShowDesignMark();
    return S_OK;
}

// The tab under design is marked when the window is painted next.
void OleControlFace::ShowDesignMark() const noexcept {
    if (const HWND window = control_.Place.Window()) InvalidateRect(window, nullptr, FALSE);
}

STDMETHODIMP OleControlFace::FreezeEvents(BOOL freeze) noexcept {
    control_.Events.Freeze(freeze);
    return S_OK;
}

} // namespace vantik

// The control in the host's window, and as the object that has the user's attention there.
#pragma once

#include "ole/com/Face.h"

namespace vantik {

class Activation;
class Control;

class InPlaceObjectFace final : public Face<IOleInPlaceObject> {
public:
    InPlaceObjectFace(Control& control, Activation& activation) noexcept;

    STDMETHODIMP GetWindow(HWND* window) noexcept override;
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) noexcept override;
    STDMETHODIMP InPlaceDeactivate() noexcept override;
    STDMETHODIMP UIDeactivate() noexcept override;
    STDMETHODIMP SetObjectRects(LPCRECT position, LPCRECT clip) noexcept override;
    STDMETHODIMP ReactivateAndUndo() noexcept override;

private:
    Activation& activation_;
};

class InPlaceActiveObjectFace final : public Face<IOleInPlaceActiveObject> {
public:
    InPlaceActiveObjectFace(Control& control, Activation& activation) noexcept;

    STDMETHODIMP GetWindow(HWND* window) noexcept override;
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) noexcept override;
    STDMETHODIMP TranslateAccelerator(LPMSG message) noexcept override;
    STDMETHODIMP OnFrameWindowActivate(BOOL activate) noexcept override;
    STDMETHODIMP OnDocWindowActivate(BOOL activate) noexcept override;
    STDMETHODIMP ResizeBorder(LPCRECT border, IOleInPlaceUIWindow* window, BOOL isFrame) noexcept override;
    STDMETHODIMP EnableModeless(BOOL enable) noexcept override;

private:
    Activation& activation_;
};

} // namespace vantik

// The control as a control: mnemonics, ambient properties, freezing of events.
#pragma once

#include "ole/com/Face.h"

namespace vantik {

class Control;

class OleControlFace final : public Face<IOleControl> {
public:
    explicit OleControlFace(Control& control) noexcept;

    STDMETHODIMP GetControlInfo(CONTROLINFO* info) noexcept override;
    STDMETHODIMP OnMnemonic(LPMSG message) noexcept override;
    STDMETHODIMP OnAmbientPropertyChange(DISPID property) noexcept override;
    STDMETHODIMP FreezeEvents(BOOL freeze) noexcept override;

private:
    void ShowDesignMark() const noexcept;

    Control& control_;
};

} // namespace vantik

// The whole handshake of loading a control in one call.
#pragma once

#include "ole/com/Face.h"

namespace vantik {

class Control;

class QuickActivateFace final : public Face<IQuickActivate> {
public:
    explicit QuickActivateFace(Control& control) noexcept;

    STDMETHODIMP QuickActivate(QACONTAINER* container, QACONTROL* result) noexcept override;
    STDMETHODIMP SetContentExtent(LPSIZEL size) noexcept override;
    STDMETHODIMP GetContentExtent(LPSIZEL size) noexcept override;

private:
    void Connect(const QACONTAINER& container, QACONTROL& result);

    Control& control_;
};

} // namespace vantik

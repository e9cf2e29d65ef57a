// The property pages of the control: its own, and the platform's for colours, fonts and pictures.
#pragma once

#include "ole/com/Face.h"

namespace vantik {

class Control;

class PropertyPagesFace final : public Face<ISpecifyPropertyPages> {
public:
    using Face::Face;
    STDMETHODIMP GetPages(CAUUID* pages) noexcept override;
};

// By the host where it has a frame for them, else in one of the platform's.
HRESULT ShowPropertyPages(Control& control, HWND parent, LPCRECT position);

} // namespace vantik

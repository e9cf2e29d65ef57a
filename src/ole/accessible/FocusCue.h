// What the user sees of the keyboard focus: a rectangle inside the active bar, inside the row while no active bar shows. It
// is drawn over what the window shows, and is no part of the control's picture.
#pragma once

#include "ole/control/Control.h"

namespace vantik {

class FocusCue {
public:
    explicit FocusCue(Control& control) noexcept : control_(control) {}

    void Focused(bool gained) noexcept;

    // After what may have moved, shown or hidden it: what it leaves and where it comes is painted anew.
    void Update() noexcept;

    void Draw(HDC dc) const;

private:
    RECT Place() const noexcept; // empty where it does not show

    Control& control_;
    bool focused_ = false;
    RECT shown_ = {};
};

} // namespace vantik

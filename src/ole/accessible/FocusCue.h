// What the user sees of the keyboard focus: a rectangle inside the active bar, inside the row while no active bar shows. It
// is drawn over what the window shows, and is no part of the control's picture. While the form is designed it marks the
// tab that controls are dropped onto, wherever the focus is.
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
    bool IsWanted() const noexcept;
    RECT Place() const noexcept; // empty where it does not show

    Control& control_;
    bool focused_ = false;
    RECT shown_ = {};
};

} // namespace vantik

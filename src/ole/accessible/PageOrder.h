// The keyboard goes where the user sees it: windows on pages that do not show are no stops of the key Tab, and do not keep
// the focus.
//
// The control is not told when a window on it moves, so it looks when some may have moved: after they were asked for, after
// one was made, and when its own size changed. By a message of its own, in whose course nothing else is half done.
#pragma once

#include "ole/accessible/ParkedStops.h"
#include "ole/control/Control.h"

namespace vantik {

class PageOrder {
public:
    explicit PageOrder(Control& control) noexcept : control_(control) {}

    static constexpr UINT Due = WM_USER + 0x4654; // to the control's window

    void ArrangeSoon() noexcept;
    void Arrange();
    void End() noexcept; // the window goes

private:
    Control& control_;
    ParkedStops stops_;
    bool isDue_ = false;
};

} // namespace vantik

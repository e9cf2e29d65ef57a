// The row of bars as screen readers find it: the control scrolls for nobody, but its buttons can be pressed for it.
#pragma once

#include "Com.h"

#include <oleacc.h>

class Row {
public:
    Row(HWND control, long tabs);

    void BringIntoView(long tab) const;
    POINT MenuCorner() const; // on the screen, below the menu button

private:
    // Its children are the tabs, then the buttons, all counted from 1.
    VARIANT Child(long place) const noexcept;
    VARIANT Button(long place) const noexcept { return Child(tabs_ + place); }
    bool IsHidden(long tab) const;
    bool Press(long button) const;
    long FirstShown() const;

    long tabs_;
    Com<IAccessible> row_;
};

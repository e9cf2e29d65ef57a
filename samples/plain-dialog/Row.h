// The row of bars as screen readers find it: the control scrolls for nobody, but its buttons can be pressed for it.
#pragma once

#include "Com.h"

#include <oleacc.h>

class Row {
public:
    Row(HWND control, short tabs);

    void BringIntoView(short tab) const;
    POINT MenuCorner() const; // on the screen, below the menu button

private:
    // Its children are the tabs, then the buttons, all counted from 1.
    VARIANT Child(int place) const noexcept;
    VARIANT Button(int place) const noexcept { return Child(tabs_ + place); }
    bool IsHidden(int tab) const;
    bool Press(int button) const;
    int FirstShown() const;

    short tabs_;
    Com<IAccessible> row_;
};

// The colour of a page, which the windows on it and the form around it take over, so that the control seems to stand on
// nothing.
#pragma once

#include <optional>

#include "gfx/Handles.h"
#include "host/HostForm.h"

namespace vantik {

class PageColour {
public:
    PageColour() : PageColour(GetSysColor(COLOR_BTNFACE)) {}

    void TakeFrom(HostForm& form); // the colour that its control paints now

    LRESULT Answer(HDC dc) const; // of WM_CTLCOLORSTATIC
    void Fill(HWND window, HDC dc) const;

private:
    explicit PageColour(COLORREF colour) : colour_(colour), brush_(CreateSolidBrush(colour)) {}

    COLORREF colour_;
    OwnedBrush brush_;
};

} // namespace vantik

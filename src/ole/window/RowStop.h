// The row of tabs as a stop of a dialog's key Tab.
//
// The dialog manager walks the windows on the control because that says so (WS_EX_CONTROLPARENT), and such a window is no
// stop itself. So a window without extent, the first of those on the control, stands for it: the focus that comes to this
// one goes on to the control. It also keeps the dialog manager from searching for ever on a page without a stop.
#pragma once

#include "platform/mDeclares.h"

namespace vantik {

class RowStop {
public:
    RowStop() noexcept = default;
    ~RowStop() { Destroy(); }
    RowStop(const RowStop&) = delete;
    RowStop& operator=(const RowStop&) = delete;

    // From here on dialogs walk the window; where that fails they pass it over.
    void Create(HWND control) noexcept;
    void Destroy() noexcept;

    HWND Handle() const noexcept { return window_; }

    // The stop behind the row on the page; null for none.
    HWND NextOnPage() const noexcept;

    static LRESULT CALLBACK Procedure(HWND window, UINT number, WPARAM wParam, LPARAM lParam) noexcept;

private:
    bool Owns(HWND window) const noexcept; // not another window that has its number now
    void Lost() noexcept;

    HWND window_ = nullptr;
};

void UnregisterRowStopClass() noexcept;

} // namespace vantik

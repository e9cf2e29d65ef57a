// The control in a window of class AtlAxWin, by the system's atl.dll: no header or library of ATL is needed.
#pragma once

#include "Com.h"

#include <oleidl.h>

class AtlHost {
public:
    AtlHost(HWND form, const wchar_t* programId);
    ~AtlHost() { DestroyWindow(window_); }
    AtlHost(const AtlHost&) = delete;
    AtlHost& operator=(const AtlHost&) = delete;

    HWND Window() const noexcept { return window_; } // around the control's own
    IUnknown& Control() const noexcept { return *control_; }
    HWND ControlWindow() const noexcept;

    // For the message loop: the host forwards no key.
    bool UsesKey(MSG& message) const noexcept;

private:
    HWND window_ = nullptr;
    Com<IUnknown> control_;
    Com<IOleInPlaceActiveObject> active_;
};

// What goes with every input of the user.
#pragma once

#include <cstdint>

#include "ole/control/Control.h"

namespace vantik {

// Whether the user can mean the window: it and all that it stands on are visible and enabled. A message may arrive all the
// same, for a captured pointer or from a host that passes messages on.
inline bool IsWithinReach(HWND window) noexcept {
    const HWND desktop = GetDesktopWindow();
    for (; window && window != desktop; window = GetAncestor(window, GA_PARENT))
        if ((GetWindowLongPtrW(window, GWL_STYLE) & (WS_VISIBLE | WS_DISABLED)) != WS_VISIBLE) return false;
    return window != nullptr;
}

// A form under design moves its controls about instead of using them.
inline bool TakesInput(Control& control) {
    return control.Ambient.UserMode() && !control.Ambient.UIDead() && IsWithinReach(control.Place.Window());
}

// Whether the user of a form under design can mean the window.
inline bool IsForDesigner(Control& control) {
    return !control.Ambient.UserMode() && !control.Ambient.UIDead() && IsWithinReach(control.Place.Window());
}

enum Shift : std::int16_t { ShiftKey = 1, CtrlKey = 2, AltKey = 4 };

inline std::int16_t ShiftState() noexcept {
    const auto bit = [](int key, int value) { return GetKeyState(key) < 0 ? value : 0; };
    return static_cast<std::int16_t>(bit(VK_SHIFT, ShiftKey) | bit(VK_CONTROL, CtrlKey) |
                                     bit(VK_MENU, AltKey));
}

} // namespace vantik

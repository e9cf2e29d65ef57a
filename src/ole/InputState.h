// What goes with every input of the user.
#pragma once

#include <cstdint>

#include "ole/Control.h"

namespace vantik {

// A form under design moves its controls about instead of using them.
inline bool TakesInput(Control& control) { return control.Ambient.UserMode() && !control.Ambient.UIDead(); }

enum Shift : std::int16_t { ShiftKey = 1, CtrlKey = 2, AltKey = 4 };

inline std::int16_t ShiftState() noexcept {
    const auto bit = [](int key, int value) { return GetKeyState(key) < 0 ? value : 0; };
    return static_cast<std::int16_t>(bit(VK_SHIFT, ShiftKey) | bit(VK_CONTROL, CtrlKey) |
                                     bit(VK_MENU, AltKey));
}

} // namespace vantik

// What goes with every input of the user.
#pragma once

#include <cstdint>

#include "ole/Control.h"

namespace vantik {

// A form under design moves its controls about instead of using them.
inline bool TakesInput(Control& control) { return control.Ambient.UserMode() && !control.Ambient.UIDead(); }

// Bit 1: Shift, 2: Ctrl, 4: Alt.
inline std::int16_t ShiftState() noexcept {
    const auto bit = [](int key, int value) { return GetKeyState(key) < 0 ? value : 0; };
    return static_cast<std::int16_t>(bit(VK_SHIFT, 1) | bit(VK_CONTROL, 2) | bit(VK_MENU, 4));
}

} // namespace vantik

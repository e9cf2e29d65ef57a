// The keys that reach the control's window: two switch tabs, and Tab goes on to the page where a dialog lets it.
#pragma once

#include "platform/mDeclares.h"

namespace vantik {

class Activation;
class Control;

class KeyInput {
public:
    KeyInput(Control& control, Activation& activation) noexcept
        : control_(control), activation_(activation) {}

    // Whether the key means something to the control.
    bool Down(WPARAM key) noexcept;

    // Tab goes to what the page has next. False for any other key, and where that has nothing.
    bool EnterPage(WPARAM key) noexcept;

    // What a dialog has to leave to the control, of all keys or of the one that it asks about.
    LRESULT WantedOf(const MSG* message) const noexcept;

private:
    HWND NextFor(WPARAM key) const noexcept;

    Control& control_;
    Activation& activation_;
};

} // namespace vantik

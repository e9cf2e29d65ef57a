// The keys that reach the control: two switch tabs, all others are the host's first, and Tab goes on to the page.
#pragma once

#include "ole/window/HostKeys.h"

namespace vantik {

class KeyInput {
public:
    KeyInput(Control& control, Activation& activation) noexcept
        : control_(control), activation_(activation), host_(control, activation) {}

    // Whether somebody used the key: a message of the window, and one that the host's loop is going to dispatch to the
    // control or to a window on it.
    bool Use(const Message& message);
    bool Translate(MSG& message);

    // What a dialog has to leave to the control, of all keys or of the one that it asks about.
    LRESULT WantedOf(const MSG* message) const noexcept;

private:
    bool Down(WPARAM key) noexcept;
    bool EnterPage(WPARAM key) noexcept;
    HWND NextFor(WPARAM key) const noexcept;

    Control& control_;
    Activation& activation_;
    HostKeys host_;
};

} // namespace vantik

// The keys that mean nothing to the control: its host may use them. The site is asked first, then the frame, if the key is
// in the frame's table of accelerators.
//
// A key comes by one of two ways, or by both: by the host's message loop, which asks the active object before it dispatches
// the message, and by the control's window. It is offered once.
#pragma once

#include <optional>

#include "ole/window/ControlWindow.h"

namespace vantik {

class Activation;

class HostKeys {
public:
    HostKeys(Control& control, Activation& activation) noexcept
        : control_(control), activation_(activation) {}

    // Each says whether the host used the key.
    bool UseFromLoop(MSG& message);
    bool UseFromWindow(const Message& message);

private:
    bool Offer(MSG& message);
    bool WasOffered(const MSG& message) noexcept;

    Control& control_;
    Activation& activation_;
    bool offering_ = false;          // a host may send the key back, or ask the active object in its turn
    std::optional<MSG> fromLoop_;    // which the loop may dispatch now
    std::optional<LPARAM> usedDown_; // of a key whose letter is still to come
};

} // namespace vantik

// The wheel over the control's window. The engine takes its step as soon as the message comes; then the message goes on to
// the host's window, as every control's wheel does.
#pragma once

#include <cstdint>
#include <optional>

#include "ole/window/ControlWindow.h"

namespace vantik {

class WheelInput {
public:
    explicit WheelInput(Control& control) noexcept : control_(control) {}

    // Whether the engine is to take a step. Some hosts return a wheel that they have no use for to the window under the
    // pointer: that is no other turn.
    bool Takes(std::int32_t turn) const;

    // A message that came back ends here, or it would go round for ever.
    LRESULT HandOn(const Message& message) noexcept;

private:
    // Messages that are sent on keep the time of the one that set them off.
    struct Turn {
        std::int32_t Distance; // with the keys held
        LONG Time;
        bool operator==(const Turn&) const = default;
    };
    static Turn Now(std::int32_t distance) noexcept { return {distance, GetMessageTime()}; }

    Control& control_;
    std::optional<Turn> underWay_;
};

} // namespace vantik

#include "ole/window/WheelInput.h"

#include <utility>

#include "ole/control/InputState.h"

namespace vantik {

bool WheelInput::Takes(std::int32_t turn) const { return underWay_ != Now(turn) && TakesInput(control_); }

LRESULT WheelInput::HandOn(const Message& message) noexcept {
    const Turn turn = Now(static_cast<std::int32_t>(message.WParam));
    if (underWay_ == turn) return 0;
    const auto outer = std::exchange(underWay_, turn);
    const LRESULT answer = DefWindowProcW(message.Window, message.Number, message.WParam, message.LParam);
    underWay_ = outer;
    return answer;
}

} // namespace vantik

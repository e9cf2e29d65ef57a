// What a piece of code raises, as the number that a host would see.
#pragma once

#include "base/RunTimeError.h"

namespace vantik {

// 0 when the action ends without an error.
template <class Action>
int NumberRaisedBy(Action action) {
    try {
        action();
        return 0;
    } catch (const RunTimeError& error) {
        return static_cast<int>(error.Number());
    }
}

} // namespace vantik

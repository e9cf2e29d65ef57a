// What a piece of code raises, as a host would see it.
#pragma once

#include <string>
#include <string_view>

#include "base/RunTimeError.h"

namespace vantik {

struct RaisedError {
    int Number = 0;   // 0: the action ended without an error
    std::string Text; // "?" stands for what is not ASCII
};

template <class Action>
RaisedError ErrorRaisedBy(Action action) {
    RaisedError raised;
    try {
        action();
    } catch (const RunTimeError& error) {
        raised.Number = static_cast<int>(error.Number());
        for (const char16_t c : std::u16string_view(error.Description()))
            raised.Text.push_back(c < 0x80 ? static_cast<char>(c) : '?');
    }
    return raised;
}

template <class Action>
int NumberRaisedBy(Action action) {
    return ErrorRaisedBy(action).Number;
}

template <class Action>
std::string TextRaisedBy(Action action) {
    return ErrorRaisedBy(action).Text;
}

} // namespace vantik

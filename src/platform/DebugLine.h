// Errors that end where nobody can be told: whoever debugs the host reads of each in one line.
//
//     VantikFrameTab: error 11 while it was resized: No layout for BarWidth = 0, TabCount = 2 on 400 x 300 pixels: ...
#pragma once

#include <cstdint>

namespace vantik {

// For use in a handler only. `when` goes on where "error 11" left off.
void TellDebugger(const char16_t* when) noexcept;

// The failures of an operation that the system repeats by itself, painting above all, which would write its line without
// end: it is written when the operation begins to fail, and again when it fails with another number or after a success.
class RepeatedFailure {
public:
    void Failed(const char16_t* when) noexcept; // for use in a handler only
    void Succeeded() noexcept { last_ = None; }

private:
    static constexpr std::int16_t None = 0;

    std::int16_t last_ = None; // number of the error that was written
};

} // namespace vantik

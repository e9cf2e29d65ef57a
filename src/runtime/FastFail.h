// Ends the process where it is, for whoever looks at its remains: nothing of it can be trusted to go on.
#pragma once

namespace vantik {

// The numbers are the system's.
enum class Failure : unsigned { StackOverrun = 2, FatalError = 7 };

[[noreturn]] inline void FailFast(Failure failure) noexcept {
    asm volatile("int $0x29" : : "c"(failure));
    __builtin_unreachable();
}

} // namespace vantik

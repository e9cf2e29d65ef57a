// What the processor can do beyond what every one has that we run on.
#pragma once

namespace vantik {

// Shifts by any register's number, which leave the flags alone (BMI2): a bit reader's whole work.
#define VANTIK_WITH_FREE_SHIFTS [[gnu::target("bmi2")]]

inline bool HasFreeShifts() noexcept { return __builtin_cpu_supports("bmi2") != 0; }

} // namespace vantik

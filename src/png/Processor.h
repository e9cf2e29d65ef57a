// What the processor can do beyond what every one has that we run on.
#pragma once

namespace vantik {

// Shifts by any register's number, which leave the flags alone (BMI2): a bit reader's whole work. Where a word of bits takes
// two registers they do not help.
#define VANTIK_WITH_FREE_SHIFTS [[gnu::target("bmi2")]]
inline constexpr bool MayHaveFreeShifts = sizeof(void*) == 8;

bool HasFreeShifts() noexcept;

} // namespace vantik

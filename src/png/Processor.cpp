#include "png/Processor.h"

#include <cpuid.h>

namespace vantik {

namespace {

bool AskForFreeShifts() noexcept {
    unsigned eax = 0, ebx = 0, ecx = 0, edx = 0;
    return MayHaveFreeShifts && __get_cpuid_count(7, 0, &eax, &ebx, &ecx, &edx) && (ebx & bit_BMI2);
}

// Asked for once: it takes long on a machine that is a guest of another.
const bool AreFree = AskForFreeShifts();

} // namespace

bool HasFreeShifts() noexcept { return AreFree; }

} // namespace vantik

// The value that the compiler has every function with a buffer put behind it on the stack, and what follows when it was
// overwritten there. The compiler's own library for this asks a cryptographic provider for the value, which loads others.
#include <cstddef>

#include "platform/mDeclares.h"
#include "runtime/FastFail.h"

// The system's random numbers, which have a name in the documentation only.
extern "C" BOOLEAN NTAPI SystemFunction036(void* buffer, ULONG size);

extern "C" {
std::size_t __stack_chk_guard = 0;
[[noreturn]] void __stack_chk_fail() { vantik::FailFast(vantik::Failure::StackOverrun); }
}

namespace {

// Before any other code of the module. The lowest byte ends texts, so that an overlong one cannot carry the value.
// Clang knows the second attribute in this spelling only.
__attribute__((constructor(101), no_stack_protector)) void ChooseGuard() {
    LARGE_INTEGER moment = {};
    QueryPerformanceCounter(&moment);
    std::size_t chosen =
        static_cast<std::size_t>(moment.QuadPart) * 0x9E3779B1u ^ reinterpret_cast<std::size_t>(&moment);
    SystemFunction036(&chosen, sizeof chosen);
    __stack_chk_guard = chosen & ~std::size_t{0xFF};
}

} // namespace

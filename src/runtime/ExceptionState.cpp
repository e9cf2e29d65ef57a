// What the C++ library keeps for each thread: the exceptions that are being handled, and how many are on their way.
#include <cxxabi.h>

#include "runtime/ThreadCopy.h"

namespace {

// In the order that the binary interface of C++ prescribes.
struct ExceptionState {
    void* Caught;
    unsigned Uncaught;
};

VANTIK_COPIED_FOR_EACH_THREAD constinit ExceptionState state = {};

} // namespace

namespace __cxxabiv1 {

__cxa_eh_globals* __cxa_get_globals() noexcept {
    return reinterpret_cast<__cxa_eh_globals*>(&vantik::OfThisThread(state));
}

__cxa_eh_globals* __cxa_get_globals_fast() noexcept { return __cxa_get_globals(); }

} // namespace __cxxabiv1

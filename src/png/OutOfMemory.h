// Memory that cannot be had is a run-time error like others to the callers of the decoder.
#pragma once

#include <new>

#include "base/RunTimeError.h"

namespace vantik {

template <class Work>
auto WithOutOfMemory(Work work) {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        Raise(RunTimeErrorNumber::OutOfMemory);
    }
}

} // namespace vantik

#include "platform/Shortage.h"

#include <atomic>
#include <new>

#include "base/RunTimeError.h"

namespace vantik {

namespace {

std::atomic<unsigned> shortages = 0; // of all controls

bool IsShortage() noexcept {
    try {
        throw;
    } catch (const RunTimeError& error) {
        return error.Number() == RunTimeErrorNumber::OutOfMemory;
    } catch (const std::bad_alloc&) {
        return true;
    } catch (...) {
        return false;
    }
}

} // namespace

void TellShortage() noexcept { ++shortages; }

bool TellIfShortage() noexcept {
    const bool isOne = IsShortage();
    if (isOne) TellShortage();
    return isOne;
}

unsigned ShortagesSoFar() noexcept { return shortages; }

} // namespace vantik

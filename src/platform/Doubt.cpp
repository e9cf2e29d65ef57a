#include "platform/Doubt.h"

#include <atomic>

namespace vantik {

namespace {

std::atomic<unsigned> doubts = 0;

} // namespace

void TellDoubt() noexcept { ++doubts; }
unsigned DoubtsSoFar() noexcept { return doubts; }

} // namespace vantik

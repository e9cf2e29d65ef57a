// The memory of this test program under control: every allocation is counted, and one of them can be made to fail.
#pragma once

#include <cstddef>

namespace vantik::allocations {

// The n-th allocation from now on (0: the next one) fails; the ones behind it succeed again.
void FailAt(long number) noexcept;
void FailNone() noexcept;

std::size_t LiveBytes() noexcept;
std::size_t LiveBlocks() noexcept;

// The most bytes that were live since the last call.
std::size_t TakePeak() noexcept;

} // namespace vantik::allocations

#include "tests/png/limits/Allocations.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace vantik::allocations {

namespace {

// In front of each block, so that its size is known when it is freed.
struct alignas(std::max_align_t) Header {
    std::size_t Size;
};

long countdown = -1;
std::size_t liveBytes = 0;
std::size_t liveBlocks = 0;
std::size_t peak = 0;

bool IsToFail() noexcept { return countdown >= 0 && countdown-- == 0; }

// A fault in a limit is to fail its test, not to take the machine down.
bool IsFarTooMuch(std::size_t size) noexcept {
    return liveBytes + std::uint64_t{size} > std::uint64_t{3} << 30;
}

void* Allocate(std::size_t size) noexcept {
    if (IsToFail() || size > SIZE_MAX - sizeof(Header) || IsFarTooMuch(size)) return nullptr;
    auto* const header = static_cast<Header*>(std::malloc(sizeof(Header) + size));
    if (!header) return nullptr;
    header->Size = size;
    liveBytes += size;
    ++liveBlocks;
    peak = std::max(peak, liveBytes);
    return header + 1;
}

void Free(void* block) noexcept {
    if (!block) return;
    Header* const header = static_cast<Header*>(block) - 1;
    liveBytes -= header->Size;
    --liveBlocks;
    std::free(header);
}

} // namespace

void FailAt(long number) noexcept { countdown = number; }
void FailNone() noexcept { countdown = -1; }
std::size_t LiveBytes() noexcept { return liveBytes; }
std::size_t LiveBlocks() noexcept { return liveBlocks; }

std::size_t TakePeak() noexcept {
    const std::size_t taken = peak;
    peak = liveBytes;
    return taken;
}

} // namespace vantik::allocations

void* operator new(std::size_t size) {
    if (void* const block = vantik::allocations::Allocate(size)) return block;
    throw std::bad_alloc();
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return vantik::allocations::Allocate(size);
}
void operator delete(void* block) noexcept { vantik::allocations::Free(block); }
void operator delete(void* block, std::size_t) noexcept { vantik::allocations::Free(block); }

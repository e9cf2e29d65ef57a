// Where exceptions are while they are on their way. Each thread has some room for them from the start, so that "out of
// memory" can be raised when there is none; the library's own reserve is taken from the heap and never given back.
#include <cxxabi.h>
#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <exception>

#include "runtime/ThreadCopy.h"

namespace {

// More than the library's record in front of each exception needs, in any bitness.
constexpr std::size_t RecordSize = 256;
constexpr std::size_t SlotSize = RecordSize + 128;
// A thread has one exception on its way, and others while something ends or is handled because of it.
constexpr std::size_t SlotCount = 4;
constexpr std::uintptr_t Alignment = alignof(std::max_align_t);

struct Reserve {
    std::uint32_t Taken; // a bit for each slot
    std::byte Room[SlotCount * SlotSize + Alignment];

    // The copies of threads are not aligned so well.
    std::byte* Slots() noexcept {
        const auto begin = reinterpret_cast<std::uintptr_t>(Room);
        return Room + (Alignment - begin % Alignment);
    }
    void* Take() noexcept {
        const auto free = static_cast<std::size_t>(std::countr_one(Taken));
        if (free == SlotCount) return nullptr;
        Taken |= 1U << free;
        return Slots() + free * SlotSize;
    }
    // False when the memory is not of this reserve.
    bool GiveBack(void* memory) noexcept {
        const auto offset =
            reinterpret_cast<std::uintptr_t>(memory) - reinterpret_cast<std::uintptr_t>(Slots());
        if (offset >= SlotCount * SlotSize) return false;
        Taken &= ~(1U << (offset / SlotSize));
        return true;
    }
};

VANTIK_COPIED_FOR_EACH_THREAD constinit Reserve reserve = {};

// Beyond the reserve the heap is the last resort.
void* Take(std::size_t size) noexcept {
    void* const slot = size <= SlotSize ? vantik::OfThisThread(reserve).Take() : nullptr;
    return slot ? slot : std::malloc(size);
}

} // namespace

namespace __cxxabiv1 {

// The record must be zero.
void* __cxa_allocate_exception(std::size_t size) noexcept {
    auto* const memory = static_cast<std::byte*>(Take(RecordSize + size));
    if (!memory) std::terminate();
    std::fill_n(memory, RecordSize, std::byte());
    return memory + RecordSize;
}

void __cxa_free_exception(void* exception) noexcept {
    void* const memory = static_cast<std::byte*>(exception) - RecordSize;
    if (!vantik::OfThisThread(reserve).GiveBack(memory)) std::free(memory);
}

} // namespace __cxxabiv1

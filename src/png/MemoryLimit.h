// What one picture may take of the memory at any time, from its chunks to the bitmap that is drawn.
#pragma once

#include <algorithm>
#include <cstdint>
#include <utility>

#include "base/RunTimeError.h"

namespace vantik {

inline constexpr std::int64_t MaxMemory = std::int64_t{1} << 30;

// Asked before anything is allocated; OutOfMemory when it would be too much in all.
inline void NeedMemory(std::int64_t bytes) {
    if (bytes > MaxMemory) Raise(RunTimeErrorNumber::OutOfMemory);
}

template <class Container>
constexpr std::int64_t ElementSize = sizeof(typename Container::value_type);

// What a container holds, and what it allocates beside that at most when so many elements are appended.
template <class Container>
std::int64_t HeldBytes(const Container& container) noexcept {
    return ElementSize<Container> * static_cast<std::int64_t>(container.capacity());
}
template <class Container>
std::int64_t GrowthOf(const Container& container, std::int64_t added) noexcept {
    const std::int64_t size = static_cast<std::int64_t>(container.size()) + added;
    const auto capacity = static_cast<std::int64_t>(container.capacity());
    return size <= capacity ? 0 : ElementSize<Container> * std::max(2 * capacity, size);
}

// What a decoder keeps of a buffer for the next picture.
inline constexpr std::size_t KeptMemory = 20 * 1024;

// An empty one assigned may leave a buffer its memory.
template <class Buffer>
void Free(Buffer& buffer) noexcept {
    Buffer none;
    std::swap(buffer, none);
}

template <class Buffer>
void GiveBackLarge(Buffer& buffer) noexcept {
    if (buffer.capacity() > KeptMemory) Free(buffer);
}

template <class Container>
Container Emptied(Container container) noexcept {
    GiveBackLarge(container);
    container.clear();
    return container;
}

} // namespace vantik

// A part of a deflate stream with the bits of every byte in reverse: only with their first bit highest do codes have an
// order.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace vantik {

// The bits of every byte in reverse, the bytes as they were.
constexpr std::uint64_t MirrorBytes(std::uint64_t bytes) noexcept {
    bytes = (bytes >> 4 & 0x0F0F0F0F0F0F0F0F) | (bytes & 0x0F0F0F0F0F0F0F0F) << 4;
    bytes = (bytes >> 2 & 0x3333333333333333) | (bytes & 0x3333333333333333) << 2;
    return (bytes >> 1 & 0x5555555555555555) | (bytes & 0x5555555555555555) << 1;
}

constexpr std::uint64_t MirrorBits(std::uint64_t bits) noexcept {
    return __builtin_bswap64(MirrorBytes(bits));
}

class MirroredInput {
public:
    void Forget() noexcept { begin_ = end_ = nullptr; }

    // Holds what follows `next`, of bytes up to `end`: all of it or at least `wanted` bytes.
    void Hold(const std::uint8_t* next, const std::uint8_t* end, std::ptrdiff_t wanted) noexcept {
        const bool isHeld = begin_ != nullptr && begin_ <= next && (end_ == end || end_ - next >= wanted);
        if (!isHeld) Mirror(next, next + std::min<std::ptrdiff_t>(end - next, Size));
    }

    // Where in the input the part ends that is held.
    const std::uint8_t* End() const noexcept { return end_; }
    // The mirrored bytes of what is held from there on.
    const std::uint8_t* At(const std::uint8_t* input) const noexcept {
        return mirrored_.data() + (input - begin_);
    }

private:
    static constexpr std::size_t Size = 2048; // the whole of most icons

    void Mirror(const std::uint8_t* begin, const std::uint8_t* end) noexcept {
        begin_ = begin;
        end_ = end;
        const auto size = static_cast<std::size_t>(end - begin);
        std::size_t i = 0;
        for (; i + 8 <= size; i += 8) MirrorSome(i, 8);
        MirrorSome(i, size - i);
    }

    // At most eight.
    void MirrorSome(std::size_t at, std::size_t count) noexcept {
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, begin_ + at, count);
        bytes = MirrorBytes(bytes);
        std::memcpy(mirrored_.data() + at, &bytes, count);
    }

    const std::uint8_t* begin_ = nullptr;
    const std::uint8_t* end_ = nullptr;
    std::array<std::uint8_t, Size> mirrored_; // filled when something is held
};

} // namespace vantik

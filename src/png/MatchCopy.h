// Copies of what was decoded before: in wide pieces, which may overlap what they copy from.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace vantik {

template <std::size_t Width>
inline void CopyBlock(std::uint8_t* to, const std::uint8_t* from) noexcept {
    std::memcpy(to, from, Width);
}

// The first blocks are copied whatever the length: most matches are short, and how often a loop turns is hard to predict.
template <std::size_t Width>
inline void CopyWide(std::uint8_t* to, const std::uint8_t* from, const std::uint8_t* end) noexcept {
#pragma GCC unroll 4
    for (std::size_t i = 0; i < 32; i += Width) CopyBlock<Width>(to + i, from + i);
    while ((to += 32) < end) [[unlikely]] {
            from += 32;
#pragma GCC unroll 4
            for (std::size_t i = 0; i < 32; i += Width) CopyBlock<Width>(to + i, from + i);
        }
}

// A pattern of `distance` bytes, at most 8, repeated over a word, and how far such words may stand apart.
struct Pattern {
    std::uint64_t Repeat; // a 1 at every place where the pattern begins
    unsigned Step;
};

inline constexpr std::array<Pattern, 8> Patterns = [] {
    std::array<Pattern, 8> patterns = {};
    for (unsigned distance = 1; distance < 8; ++distance) {
        for (unsigned at = 0; at < 8; at += distance) patterns[distance].Repeat |= std::uint64_t{1} << 8 * at;
        patterns[distance].Step = 8 - 8 % distance;
    }
    return patterns;
}();

inline void RepeatPattern(std::uint8_t* to, std::size_t distance, const std::uint8_t* end) noexcept {
    std::uint64_t word;
    std::memcpy(&word, to - distance, sizeof word);
    word = (word & ((std::uint64_t{1} << 8 * distance) - 1)) * Patterns[distance].Repeat;
    const std::size_t step = Patterns[distance].Step;
    do {
#pragma GCC unroll 4
        for (int i = 0; i < 4; ++i, to += step) std::memcpy(to, &word, sizeof word);
    } while (to < end);
}

// May write up to 31 bytes behind the end.
inline void CopyMatch(std::uint8_t* to, std::size_t distance, std::uint32_t length) noexcept {
    const std::uint8_t* const from = to - distance;
    std::uint8_t* const end = to + length;
    if (distance >= 16) return CopyWide<16>(to, from, end);
    if (distance >= 8) return CopyWide<8>(to, from, end);
    RepeatPattern(to, distance, end);
}

} // namespace vantik

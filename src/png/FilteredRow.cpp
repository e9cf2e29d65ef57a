#include "png/FilteredRow.h"

#include <emmintrin.h>

#include <cstring>

namespace vantik {

namespace {

using Byte = std::uint8_t;

__m128i LoadBlock(const Byte* from) noexcept {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
}
void StoreBlock(Byte* to, __m128i block) noexcept { _mm_storeu_si128(reinterpret_cast<__m128i*>(to), block); }

void SwapThrees(const Byte* from, Byte* to, std::size_t size) noexcept {
    for (std::size_t i = 0; i < size; i += 3) {
        std::uint32_t pixel;
        std::memcpy(&pixel, from + i, sizeof pixel);
        pixel = __builtin_bswap32(pixel) >> 8;
        std::memcpy(to + i, &pixel, sizeof pixel);
    }
}

void SwapFours(const Byte* from, Byte* to, std::size_t size) noexcept {
    const __m128i greenAndAlpha = _mm_set1_epi32(static_cast<int>(0xFF00FF00u));
    for (std::size_t i = 0; i < size; i += 16) {
        const __m128i pixels = LoadBlock(from + i);
        const __m128i redAndBlue = _mm_andnot_si128(greenAndAlpha, pixels);
        const __m128i swapped = _mm_or_si128(_mm_slli_epi32(redAndBlue, 16), _mm_srli_epi32(redAndBlue, 16));
        StoreBlock(to + i, _mm_or_si128(_mm_and_si128(greenAndAlpha, pixels), swapped));
    }
}

// The high byte of a sample comes first.
__m128i HighBytes(const Byte* from) noexcept { return _mm_and_si128(LoadBlock(from), _mm_set1_epi16(0xFF)); }

void KeepHighBytes(const Byte* from, Byte* to, std::size_t size) noexcept {
    std::size_t i = 0;
    for (; i + 16 <= size; i += 16)
        StoreBlock(to + i, _mm_packus_epi16(HighBytes(from + 2 * i), HighBytes(from + 2 * i + 16)));
    for (; i < size; ++i) to[i] = from[2 * i];
}

void KeepAndSwapThrees(const Byte* from, Byte* to, std::size_t size) noexcept {
    for (std::size_t i = 0; i < size; i += 3, from += 6) {
        to[i] = from[4];
        to[i + 1] = from[2];
        to[i + 2] = from[0];
    }
}

// Two pixels a step.
void KeepAndSwapFours(const Byte* from, Byte* to, std::size_t size) noexcept {
    constexpr int Swapped = _MM_SHUFFLE(3, 0, 1, 2);
    for (std::size_t i = 0; i < size; i += 8) {
        const __m128i lower = _mm_shufflelo_epi16(HighBytes(from + 2 * i), Swapped);
        const __m128i pixels = _mm_shufflehi_epi16(lower, Swapped);
        _mm_storel_epi64(reinterpret_cast<__m128i*>(to + i), _mm_packus_epi16(pixels, pixels));
    }
}

} // namespace

void Rearrange(Rearrangement how, const Byte* from, Byte* to, std::size_t size,
               std::size_t bytesPerPixel) noexcept {
    if (!how.SwapsRedBlue) return KeepHighBytes(from, to, size);
    const auto swapThrees = how.KeepsHighBytes ? KeepAndSwapThrees : SwapThrees;
    const auto swapFours = how.KeepsHighBytes ? KeepAndSwapFours : SwapFours;
    (bytesPerPixel == 3 ? swapThrees : swapFours)(from, to, size);
}

} // namespace vantik

#include "png/UnfilterPixels.h"

#include <emmintrin.h>

#include <cstring>

#include "png/Unfilter.h"

namespace vantik {

namespace {

using Byte = std::uint8_t;

// Reads four bytes whatever the pixel's size.
__m128i LoadPixel(const Byte* from) noexcept {
    std::int32_t pixel;
    std::memcpy(&pixel, from, sizeof pixel);
    return _mm_cvtsi32_si128(pixel);
}

template <std::size_t Size>
void StorePixel(Byte* to, __m128i pixel) noexcept {
    const std::int32_t low = _mm_cvtsi128_si32(pixel);
    std::memcpy(to, &low, Size);
}

__m128i LoadBlock(const Byte* from) noexcept {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
}
void StoreBlock(Byte* to, __m128i block) noexcept { _mm_storeu_si128(reinterpret_cast<__m128i*>(to), block); }

template <std::size_t Size>
void Sub(const Byte* filtered, Byte* row, std::size_t size) noexcept {
    __m128i left = _mm_setzero_si128();
    for (std::size_t i = 0; i < size; i += Size) {
        left = _mm_add_epi8(LoadPixel(filtered + i), left);
        StorePixel<Size>(row + i, left);
    }
}

void Up(const Byte* filtered, const Byte* prior, Byte* row, std::size_t size) noexcept {
    std::size_t i = 0;
    for (; i + 16 <= size; i += 16)
        StoreBlock(row + i, _mm_add_epi8(LoadBlock(filtered + i), LoadBlock(prior + i)));
    for (; i < size; ++i) row[i] = static_cast<Byte>(filtered[i] + prior[i]);
}

// The machine's average rounds up; where the sum is odd that is one too much.
__m128i AverageDown(__m128i a, __m128i b) noexcept {
    const __m128i isOdd = _mm_and_si128(_mm_xor_si128(a, b), _mm_set1_epi8(1));
    return _mm_sub_epi8(_mm_avg_epu8(a, b), isOdd);
}

template <std::size_t Size>
void Average(const Byte* filtered, const Byte* prior, Byte* row, std::size_t size) noexcept {
    __m128i left = _mm_setzero_si128();
    for (std::size_t i = 0; i < size; i += Size) {
        left = _mm_add_epi8(LoadPixel(filtered + i), AverageDown(left, LoadPixel(prior + i)));
        StorePixel<Size>(row + i, left);
    }
}

__m128i Absolute(__m128i words) noexcept {
    return _mm_max_epi16(words, _mm_sub_epi16(_mm_setzero_si128(), words));
}

__m128i Select(__m128i mask, __m128i ifSet, __m128i otherwise) noexcept {
    return _mm_or_si128(_mm_and_si128(mask, ifSet), _mm_andnot_si128(mask, otherwise));
}

// The neighbours of up to two pixels as 16-bit words, one pixel per half.
struct PaethNeighbours {
    __m128i Left = _mm_setzero_si128();
    __m128i UpperLeft = _mm_setzero_si128();

    // Moves one pixel on and returns it.
    __m128i Next(__m128i filtered, __m128i up) noexcept {
        const __m128i upStep = _mm_sub_epi16(up, UpperLeft);
        const __m128i leftStep = _mm_sub_epi16(Left, UpperLeft);
        const __m128i toLeft = Absolute(upStep);
        const __m128i toUp = Absolute(leftStep);
        const __m128i toUpperLeft = Absolute(_mm_add_epi16(upStep, leftStep));
        const __m128i smallest = _mm_min_epi16(toUpperLeft, _mm_min_epi16(toLeft, toUp));
        const __m128i upOrUpperLeft = Select(_mm_cmpeq_epi16(smallest, toUp), up, UpperLeft);
        const __m128i predicted = Select(_mm_cmpeq_epi16(smallest, toLeft), Left, upOrUpperLeft);
        // Sums of bytes: the upper half of each word is 0 and stays so.
        Left = _mm_add_epi8(filtered, predicted);
        UpperLeft = up;
        return Left;
    }
};

__m128i Widen(__m128i bytes) noexcept { return _mm_unpacklo_epi8(bytes, _mm_setzero_si128()); }
__m128i Narrow(__m128i words) noexcept { return _mm_packus_epi16(words, words); }

template <std::size_t Size>
void Paeth(const Byte* filtered, const Byte* prior, Byte* row, std::size_t size) noexcept {
    PaethNeighbours neighbours;
    for (std::size_t i = 0; i < size; i += Size) {
        StorePixel<Size>(
            row + i, Narrow(neighbours.Next(Widen(LoadPixel(filtered + i)), Widen(LoadPixel(prior + i)))));
    }
}

// The lower half of the words is the first row's pixel, the upper half the second row's pixel before it. What lies
// above that one is the pixel the first row has just got, so both rows share one chain of dependent steps.
template <std::size_t Size>
void PaethPair(std::array<const Byte*, 2> filtered, const Byte* prior, std::array<Byte*, 2> rows,
               std::size_t size) noexcept {
    PaethNeighbours neighbours;
    const auto next = [&](__m128i first, __m128i second, __m128i up) {
        const __m128i both = Widen(_mm_unpacklo_epi32(first, second));
        return Narrow(neighbours.Next(both, _mm_unpacklo_epi64(Widen(up), neighbours.Left)));
    };
    const __m128i none = _mm_setzero_si128();
    StorePixel<Size>(rows[0], next(LoadPixel(filtered[0]), none, LoadPixel(prior)));
    for (std::size_t i = Size; i < size; i += Size) {
        const __m128i pixels =
            next(LoadPixel(filtered[0] + i), LoadPixel(filtered[1] + i - Size), LoadPixel(prior + i));
        StorePixel<Size>(rows[0] + i, pixels);
        StorePixel<Size>(rows[1] + i - Size, _mm_srli_si128(pixels, 4));
    }
    const __m128i last = next(none, LoadPixel(filtered[1] + size - Size), none);
    StorePixel<Size>(rows[1] + size - Size, _mm_srli_si128(last, 4));
}

template <std::size_t Size>
void Unfilter(Byte filterType, const Byte* filtered, const Byte* prior, Byte* row, std::size_t size,
              std::size_t /*bytesPerPixel*/) {
    switch (static_cast<FilterType>(filterType)) {
    case FilterType::Sub: return Sub<Size>(filtered, row, size);
    case FilterType::Up: return Up(filtered, prior, row, size);
    case FilterType::Average: return Average<Size>(filtered, prior, row, size);
    case FilterType::Paeth: return Paeth<Size>(filtered, prior, row, size);
    default: break;
    }
    if (size == Size)
        return StorePixel<Size>(row, LoadPixel(filtered)); // a longer copy takes its preparations
    std::memcpy(row, filtered, size);
}

} // namespace

UnfilterFunction PixelFiltersOf(std::size_t bytesPerPixel) noexcept {
    static constexpr UnfilterFunction BySize[] = {Unfilter<1>, Unfilter<2>, Unfilter<3>, Unfilter<4>};
    return BySize[bytesPerPixel - 1];
}

void UnfilterPaethPair(std::array<const std::uint8_t*, 2> filtered, const std::uint8_t* prior,
                       std::array<std::uint8_t*, 2> rows, std::size_t size, std::size_t bytesPerPixel) {
    static constexpr decltype(&PaethPair<1>) BySize[] = {PaethPair<1>, PaethPair<2>, PaethPair<3>,
                                                         PaethPair<4>};
    BySize[bytesPerPixel - 1](filtered, prior, rows, size);
}

} // namespace vantik

// The filters over whole pixels of 1 to 4 bytes, and on two rows at once: SSE2, which every target of ours has.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace vantik {

using UnfilterFunction = void (*)(std::uint8_t filterType, const std::uint8_t* filtered,
                                  const std::uint8_t* prior, std::uint8_t* row, std::size_t size,
                                  std::size_t bytesPerPixel);

// Rows of whole pixels only: odd bit depths make rows that end inside one.
constexpr bool HasPixelFilters(std::size_t bytesPerPixel, std::size_t rowSize) noexcept {
    return bytesPerPixel <= 4 && rowSize > 0 && rowSize % bytesPerPixel == 0;
}

// For pixels of so many bytes. All rows are read up to 16 bytes behind their end and written no further than to it.
UnfilterFunction PixelFiltersOf(std::size_t bytesPerPixel) noexcept;

// Two Paeth rows, the second one pixel behind the first.
void UnfilterPaethPair(std::array<const std::uint8_t*, 2> filtered, const std::uint8_t* prior,
                       std::array<std::uint8_t*, 2> rows, std::size_t size, std::size_t bytesPerPixel);

} // namespace vantik

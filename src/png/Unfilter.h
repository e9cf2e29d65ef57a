// Undoes the five filters of scanlines.
#pragma once

#include <cstddef>
#include <cstdint>

#include "png/FilteredRow.h"
#include "png/RawScanlines.h"
#include "png/UnfilterPixels.h"

namespace vantik {

// Row buffers that the functions below read from or write to must have this many readable bytes behind each row.
inline constexpr std::size_t RowSlack = 16;

enum class FilterType : std::uint8_t { None, Sub, Up, Average, Paeth };

// Rows of `size` bytes, each against the row before it. Every filter type above 4 is treated as None.
class RowUnfilter {
public:
    RowUnfilter(std::size_t size, std::size_t bytesPerPixel) noexcept;

    void operator()(std::uint8_t filterType, const std::uint8_t* filtered, const std::uint8_t* prior,
                    std::uint8_t* row) const {
        unfilter_(filterType, filtered, prior, row, size_, bytesPerPixel_);
    }

private:
    const std::size_t size_;
    const std::size_t bytesPerPixel_;
    const UnfilterFunction unfilter_;
};

// Where the rows of an image go: from the first one on, `Step` bytes from row to row, which may lead backwards.
struct RowTarget {
    std::uint8_t* First;
    std::ptrdiff_t Step;

    std::uint8_t* Row(std::int64_t y) const noexcept { return First + y * Step; }
};

struct FilteredImage {
    std::int64_t Height;
    std::size_t RowSize; // as it is unfiltered, without the filter byte
    std::size_t BytesPerPixel;
    Rearrangement Before; // what is done to the filtered rows
};

// All rows of an image that is not interlaced.
void UnfilterImage(RawScanlines& raw, const FilteredImage& image, RowTarget target);

} // namespace vantik

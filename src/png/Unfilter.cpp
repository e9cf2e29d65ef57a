#include "png/Unfilter.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "png/ByteBuffer.h"

namespace vantik {

namespace {

using Byte = std::uint8_t;

Byte PaethPredictor(int left, int up, int upperLeft) noexcept {
    const int toLeft = std::abs(up - upperLeft);
    const int toUp = std::abs(left - upperLeft);
    const int toUpperLeft = std::abs(left + up - 2 * upperLeft);
    if (toLeft <= toUp && toLeft <= toUpperLeft) return static_cast<Byte>(left);
    return static_cast<Byte>(toUp <= toUpperLeft ? up : upperLeft);
}

void Sub(const Byte* filtered, Byte* row, std::size_t size, std::size_t distance) noexcept {
    for (std::size_t i = 0; i < size; ++i) {
        const int left = i < distance ? 0 : row[i - distance];
        row[i] = static_cast<Byte>(filtered[i] + left);
    }
}

void Up(const Byte* filtered, const Byte* prior, Byte* row, std::size_t size) noexcept {
    for (std::size_t i = 0; i < size; ++i) row[i] = static_cast<Byte>(filtered[i] + prior[i]);
}

void Average(const Byte* filtered, const Byte* prior, Byte* row, std::size_t size,
             std::size_t distance) noexcept {
    for (std::size_t i = 0; i < size; ++i) {
        const int left = i < distance ? 0 : row[i - distance];
        row[i] = static_cast<Byte>(filtered[i] + (left + prior[i]) / 2);
    }
}

void Paeth(const Byte* filtered, const Byte* prior, Byte* row, std::size_t size,
           std::size_t distance) noexcept {
    for (std::size_t i = 0; i < size; ++i) {
        const bool isFirst = i < distance;
        const Byte predicted =
            isFirst ? prior[i] : PaethPredictor(row[i - distance], prior[i], prior[i - distance]);
        row[i] = static_cast<Byte>(filtered[i] + predicted);
    }
}

// Byte by byte, whatever a pixel is.
void UnfilterBytes(Byte filterType, const Byte* filtered, const Byte* prior, Byte* row, std::size_t size,
                   std::size_t bytesPerPixel) {
    switch (static_cast<FilterType>(filterType)) {
    case FilterType::Sub: return Sub(filtered, row, size, bytesPerPixel);
    case FilterType::Up: return Up(filtered, prior, row, size);
    case FilterType::Average: return Average(filtered, prior, row, size, bytesPerPixel);
    case FilterType::Paeth: return Paeth(filtered, prior, row, size, bytesPerPixel);
    default: std::copy_n(filtered, size, row);
    }
}

// Rows are unfiltered in bands of about this size, soon after they were inflated.
constexpr std::size_t BandSize = 32 * 1024;

// The state of one UnfilterImage.
class ImageUnfilter {
public:
    ImageUnfilter(RawScanlines& raw, const FilteredImage& image, RowTarget target)
        : raw_(raw),
          image_(image),
          target_(target),
          stored_(image.RowSize * image.Before.Shrinks() + 1),
          unfilter_(image.RowSize, image.BytesPerPixel),
          hasPairs_(HasPixelFilters(image.BytesPerPixel, image.RowSize)),
          spareRows_(ByteBuffer::Zeroed((image.Before.IsNone() ? 1 : 3) * SpareRowSize())) {}

    void Run() {
        const auto rowsPerBand = static_cast<std::int64_t>(std::max<std::size_t>(1, BandSize / stored_));
        const Byte* prior = spareRows_.data(); // zeros above the first row
        for (std::int64_t y = 0; y < image_.Height;) {
            const std::int64_t end = std::min(y + rowsPerBand, image_.Height);
            const Byte* scanlines = raw_.UpTo(static_cast<std::size_t>(end) * stored_);
            while (y < end) {
                const Byte* scanline = scanlines + static_cast<std::size_t>(y) * stored_;
                y += UnfilterNext(scanline, prior, y, end - y);
                prior = target_.Row(y - 1);
            }
        }
    }

private:
    // One row, or two when that is faster; returns how many.
    int UnfilterNext(const Byte* scanline, const Byte* prior, std::int64_t y, std::int64_t rowsLeft) {
        const Byte* first = Filtered(scanline, 0);
        if (hasPairs_ && rowsLeft > 1 && IsPaeth(scanline) && IsPaeth(scanline + stored_)) {
            const Byte* second = Filtered(scanline + stored_, 1);
            UnfilterPaethPair({first, second}, prior, {target_.Row(y), target_.Row(y + 1)}, image_.RowSize,
                              image_.BytesPerPixel);
            return 2;
        }
        unfilter_(scanline[0], first, prior, target_.Row(y));
        return 1;
    }

    static bool IsPaeth(const Byte* scanline) noexcept {
        return scanline[0] == static_cast<Byte>(FilterType::Paeth);
    }

    const Byte* Filtered(const Byte* scanline, std::size_t spare) {
        if (image_.Before.IsNone()) return scanline + 1;
        Byte* const row = spareRows_.data() + (1 + spare) * SpareRowSize();
        Rearrange(image_.Before, scanline + 1, row, image_.RowSize, image_.BytesPerPixel);
        return row;
    }

    std::size_t SpareRowSize() const noexcept { return image_.RowSize + RowSlack; }

    RawScanlines& raw_;
    const FilteredImage& image_;
    const RowTarget target_;
    const std::size_t stored_; // size of a scanline with its filter byte
    const RowUnfilter unfilter_;
    const bool hasPairs_;
    ByteBuffer spareRows_; // of zeros, and two for rearranged filtered rows
};

} // namespace

RowUnfilter::RowUnfilter(std::size_t size, std::size_t bytesPerPixel) noexcept
    : size_(size),
      bytesPerPixel_(bytesPerPixel),
      unfilter_(HasPixelFilters(bytesPerPixel, size) ? PixelFiltersOf(bytesPerPixel) : UnfilterBytes) {}

void UnfilterImage(RawScanlines& raw, const FilteredImage& image, RowTarget target) {
    ImageUnfilter(raw, image, target).Run();
}

} // namespace vantik

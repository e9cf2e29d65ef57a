#include "png/Deinterlace.h"

#include <cstring>
#include <utility>
#include <vector>

#include "png/ScanlineLayout.h"
#include "png/Unfilter.h"

namespace vantik {

namespace {

constexpr std::int32_t BlockExtent = 8;

// The 1-based columns and rows that a pass takes inside every block of 8 x 8 pixels.
struct Pass {
    std::string_view Columns;
    std::string_view Rows;
};

constexpr Pass Passes[] = {
    {"1", "1"}, {"5", "1"}, {"15", "5"}, {"37", "15"}, {"1357", "37"}, {"2468", "1357"}, {"12345678", "2468"},
};

std::int32_t PositionOf(char digit) noexcept { return digit - '1'; }

// Puts the pixels of a pass's row where the digits of the columns say.
using ScatterFunction = void (*)(const std::uint8_t* from, std::uint8_t* row, std::string_view columns,
                                 std::size_t count, std::size_t pixelSize);

// Calls store(x, k) for the k-th pixel, which belongs in column x.
template <class Store>
inline void ForEachColumn(std::string_view columns, std::size_t count, Store store) {
    std::size_t k = 0;
    for (std::size_t block = 0; k < count; block += BlockExtent) {
        for (std::size_t i = 0; i < columns.size() && k < count; ++i, ++k) {
            store(block + static_cast<std::size_t>(PositionOf(columns[i])), k);
        }
    }
}

template <unsigned Bits>
void ScatterSamples(const std::uint8_t* from, std::uint8_t* row, std::string_view columns, std::size_t count,
                    std::size_t /*pixelSize*/) {
    constexpr unsigned PerByte = 8 / Bits;
    ForEachColumn(columns, count, [&](std::size_t x, std::size_t k) {
        row[x] = SampleOf<Bits>(from[k / PerByte], static_cast<unsigned>(k % PerByte));
    });
}

// A fixed size, or any when that is 0.
template <std::size_t FixedSize>
void ScatterBytes(const std::uint8_t* from, std::uint8_t* row, std::string_view columns, std::size_t count,
                  std::size_t pixelSize) {
    const std::size_t size = FixedSize ? FixedSize : pixelSize;
    ForEachColumn(columns, count,
                  [&](std::size_t x, std::size_t k) { std::memcpy(row + x * size, from + k * size, size); });
}

constexpr bool IsPacked(std::int32_t bitsPerPixel) noexcept {
    return bitsPerPixel == 1 || bitsPerPixel == 2 || bitsPerPixel == 4;
}

// None when pixels have no bits.
ScatterFunction ScatterOf(std::int32_t bitsPerPixel, std::size_t pixelSize) noexcept {
    switch (bitsPerPixel) {
    case 0: return nullptr;
    case 1: return ScatterSamples<1>;
    case 2: return ScatterSamples<2>;
    case 4: return ScatterSamples<4>;
    default: break;
    }
    switch (pixelSize) {
    case 1: return ScatterBytes<1>;
    case 3: return ScatterBytes<3>;
    case 4: return ScatterBytes<4>;
    default: return ScatterBytes<0>;
    }
}

class Deinterlacer {
public:
    Deinterlacer(RawScanlines& raw, const InterlacedImage& image)
        : raw_(raw),
          image_(image),
          pixelSize_(static_cast<std::size_t>(BytesPerPixel(image.BitsPerPixel))),
          scatter_(ScatterOf(image.BitsPerPixel, pixelSize_)),
          pixels_(ByteBuffer::Zeroed(static_cast<std::size_t>(image.Width) *
                                     static_cast<std::size_t>(image.Height) * pixelSize_)) {}

    ByteBuffer Run() {
        for (const Pass& pass : Passes) ReadPass(pass);
        return std::move(pixels_);
    }

private:
    void ReadPass(const Pass& pass) {
        const std::int64_t width = PassWidth(image_.Width, pass.Columns);
        if (width == 0) return;
        rowSize_ = static_cast<std::size_t>(RowBytes(width, image_.BitsPerPixel) - 1);
        rows_.assign(2 * (rowSize_ + RowSlack), 0);
        row_ = rows_.data();
        prior_ = row_ + rowSize_ + RowSlack; // zeros above the first row of every pass
        const RowUnfilter unfilter(rowSize_, pixelSize_);
        for (std::int64_t block = 0; block < image_.Height; block += BlockExtent) {
            for (const char digit : pass.Rows) {
                const std::int64_t y = block + PositionOf(digit);
                if (y < image_.Height) ReadPassRow(unfilter, pass.Columns, width, y);
            }
        }
    }

    void ReadPassRow(const RowUnfilter& unfilter, std::string_view columns, std::int64_t width,
                     std::int64_t y) {
        const std::size_t end = position_ + 1 + rowSize_;
        const std::uint8_t* scanline = raw_.UpTo(end) + position_;
        position_ = end;
        unfilter(scanline[0], scanline + 1, prior_, row_);
        std::swap(row_, prior_); // the new row is the next one's prior
        ScatterPassRow(prior_, columns, width, y);
    }

    void ScatterPassRow(const std::uint8_t* row, std::string_view columns, std::int64_t width,
                        std::int64_t y) {
        if (!scatter_) return; // no such colour type, no pixels
        const auto count = static_cast<std::size_t>(width);
        if (!IsPacked(image_.BitsPerPixel) && count * pixelSize_ > rowSize_) {
            Raise(RunTimeErrorNumber::SubscriptOutOfRange); // samples of an odd width that nobody can split
        }
        const std::size_t start =
            static_cast<std::size_t>(y) * static_cast<std::size_t>(image_.Width) * pixelSize_;
        scatter_(row, pixels_.data() + start, columns, count, pixelSize_);
    }

    RawScanlines& raw_;
    const InterlacedImage image_;
    const std::size_t pixelSize_;
    const ScatterFunction scatter_;
    ByteBuffer pixels_;
    std::size_t position_ = 0;       // in the raw scanlines
    std::size_t rowSize_ = 0;        // of the present pass, without the filter byte
    std::vector<std::uint8_t> rows_; // two
    std::uint8_t* row_ = nullptr;
    std::uint8_t* prior_ = nullptr;
};

// Whole bytes first, whose samples all have a fixed place.
template <unsigned Bits>
void SplitBytes(const std::uint8_t* packed, std::uint8_t* samples, std::size_t count) noexcept {
    constexpr unsigned PerByte = 8 / Bits;
    for (; count >= PerByte; count -= PerByte, ++packed, samples += PerByte) {
#pragma GCC unroll 8
        for (unsigned i = 0; i < PerByte; ++i) samples[i] = SampleOf<Bits>(*packed, i);
    }
    for (unsigned i = 0; i < count; ++i) samples[i] = SampleOf<Bits>(*packed, i);
}

} // namespace

std::int64_t PassWidth(std::int32_t width, std::string_view columns) noexcept {
    std::int64_t pixels = std::int64_t{width / BlockExtent} * static_cast<std::int64_t>(columns.size());
    for (const char digit : columns) {
        if (PositionOf(digit) < width % BlockExtent) ++pixels;
    }
    return pixels;
}

void SplitBits(const std::uint8_t* packed, std::uint8_t* samples, std::size_t count,
               std::int32_t bits) noexcept {
    switch (bits) {
    case 1: return SplitBytes<1>(packed, samples, count);
    case 2: return SplitBytes<2>(packed, samples, count);
    default: SplitBytes<4>(packed, samples, count);
    }
}

ByteBuffer Deinterlace(RawScanlines& raw, const InterlacedImage& image) {
    return Deinterlacer(raw, image).Run();
}

} // namespace vantik

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

class Deinterlacer {
public:
    Deinterlacer(RawScanlines& raw, const InterlacedImage& image)
        : raw_(raw),
          image_(image),
          pixelSize_(static_cast<std::size_t>(BytesPerPixel(image.BitsPerPixel))),
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
        row_.assign(rowSize_ + RowSlack, 0);
        prior_.assign(rowSize_ + RowSlack, 0); // zeros above the first row of every pass
        samples_.resize(static_cast<std::size_t>(width) + 8);
        for (std::int64_t block = 0; block < image_.Height; block += BlockExtent) {
            for (const char digit : pass.Rows) {
                const std::int64_t y = block + PositionOf(digit);
                if (y < image_.Height) ReadPassRow(pass.Columns, width, y);
            }
        }
    }

    void ReadPassRow(std::string_view columns, std::int64_t width, std::int64_t y) {
        const std::size_t end = position_ + 1 + rowSize_;
        const std::uint8_t* scanline = raw_.UpTo(end) + position_;
        position_ = end;
        UnfilterRow(scanline[0], scanline + 1, prior_.data(), row_.data(), rowSize_, pixelSize_);
        std::swap(row_, prior_); // the new row is the next one's prior
        ScatterPassRow(prior_.data(), columns, width, y);
    }

    // The k-th pixel of the row goes to the column that the digits give for it.
    void ScatterPassRow(const std::uint8_t* row, std::string_view columns, std::int64_t width,
                        std::int64_t y) {
        const std::int32_t bits = image_.BitsPerPixel;
        if (bits == 0) return; // no such colour type, no pixels
        const auto count = static_cast<std::size_t>(width);
        if (bits == 1 || bits == 2 || bits == 4) {
            SplitBits(row, samples_.data(), count, bits);
            row = samples_.data();
        } else if (count * pixelSize_ > rowSize_) {
            Raise(RunTimeErrorNumber::SubscriptOutOfRange); // samples of an odd width that nobody can split
        }
        std::uint8_t* const target = pixels_.data() + static_cast<std::size_t>(y) *
                                                          static_cast<std::size_t>(image_.Width) * pixelSize_;
        switch (pixelSize_) {
        case 1: return Scatter<1>(row, target, columns, count);
        case 3: return Scatter<3>(row, target, columns, count);
        case 4: return Scatter<4>(row, target, columns, count);
        default: return Scatter<0>(row, target, columns, count);
        }
    }

    template <std::size_t FixedSize>
    void Scatter(const std::uint8_t* from, std::uint8_t* row, std::string_view columns,
                 std::size_t count) const noexcept {
        const std::size_t size = FixedSize ? FixedSize : pixelSize_;
        std::size_t k = 0;
        for (std::size_t block = 0; k < count; block += BlockExtent) {
            for (std::size_t i = 0; i < columns.size() && k < count; ++i, ++k) {
                const std::size_t x = block + static_cast<std::size_t>(PositionOf(columns[i]));
                std::memcpy(row + x * size, from + k * size, size);
            }
        }
    }

    RawScanlines& raw_;
    const InterlacedImage image_;
    const std::size_t pixelSize_;
    ByteBuffer pixels_;
    std::size_t position_ = 0; // in the raw scanlines
    std::size_t rowSize_ = 0;  // of the present pass, without the filter byte
    std::vector<std::uint8_t> row_;
    std::vector<std::uint8_t> prior_;
    std::vector<std::uint8_t> samples_;
};

// The first sample is in the highest bits.
template <unsigned Bits>
constexpr std::uint8_t SampleOf(std::uint8_t packed, unsigned index) noexcept {
    return static_cast<std::uint8_t>(packed >> (8 - Bits - index * Bits) & ((1u << Bits) - 1));
}

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

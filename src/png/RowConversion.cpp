#include "png/RowConversion.h"

#include <algorithm>
#include <cstring>

#include "png/ColourTables.h"
#include "png/Deinterlace.h"

namespace vantik {

namespace {

using Byte = std::uint8_t;

constexpr std::uint32_t Opaque = 0xFF000000u;

void StorePixel(Byte* row, std::size_t x, std::uint32_t pixel) noexcept {
    std::memcpy(row + 4 * x, &pixel, sizeof pixel);
}

// The alpha of palette indexes; those that tRNS does not cover are opaque.
ColourMap PaletteColours(const PngContents& png) {
    const ColourTable table = PaletteTable(png.Palette, 256);
    ColourMap colours;
    for (std::size_t i = 0; i < colours.size(); ++i) {
        const std::uint32_t alpha = i < png.Transparency.size() ? png.Transparency[i] : 255;
        colours[i] = table[i] | alpha << 24;
    }
    return colours;
}

// The tRNS sample as the image's own depth has it; -1 when the chunk is too short for one.
std::int32_t KeySample(const PngContents& png, std::size_t channel) noexcept {
    if (png.Transparency.size() < 2 * channel + 2) return -1;
    const std::int32_t sample = png.Transparency[2 * channel] << 8 | png.Transparency[2 * channel + 1];
    return sample & ((1 << png.Header.BitDepth) - 1);
}

ColourMap GreyColours(const PngContents& png) {
    const ColourTable table = GreyPalette(png.Header.BitDepth, 256);
    ColourMap colours;
    for (std::size_t i = 0; i < colours.size(); ++i) colours[i] = table[i] | Opaque;
    const std::int32_t key = KeySample(png, 0);
    if (key >= 0) colours[static_cast<std::size_t>(key)] &= ~Opaque;
    return colours;
}

template <std::size_t SampleSize>
std::int32_t SampleAt(const Byte* sample) noexcept {
    return SampleSize == 1 ? sample[0] : sample[0] << 8 | sample[1];
}

} // namespace

RowConverter::RowConverter(const PngContents& png, bool isTransparent, std::int32_t sampleBits)
    : png_(png),
      width_(static_cast<std::size_t>(png.Header.Width)),
      sampleBits_(sampleBits),
      convert_(Choose(isTransparent)) {
    if (!isTransparent || png.Header.BitDepth > 8) return;
    if (png.Header.ColourType == ColourType::Palette) colours_ = PaletteColours(png);
    if (png.Header.ColourType == ColourType::Grey) colours_ = GreyColours(png);
}

RowConverter::Conversion RowConverter::Choose(bool isTransparent) const {
    const bool isSixteen = sampleBits_ == 16;
    switch (png_.Header.ColourType) {
    case ColourType::Rgb:
        if (isTransparent) return isSixteen ? &RowConverter::RgbWithKey<2> : &RowConverter::RgbWithKey<1>;
        return isSixteen ? &RowConverter::RgbToBgr<2> : &RowConverter::RgbToBgr<1>;
    case ColourType::GreyAlpha:
        return isSixteen ? &RowConverter::GreyAlphaToBgra<2> : &RowConverter::GreyAlphaToBgra<1>;
    case ColourType::RgbAlpha: return isSixteen ? &RowConverter::RgbaToBgra<2> : &RowConverter::RgbaToBgra<1>;
    default: return ChooseForIndexes(isTransparent);
    }
}

RowConverter::Conversion RowConverter::ChooseForIndexes(bool isTransparent) const {
    const bool isSixteen = sampleBits_ == 16;
    if (isTransparent) {
        switch (sampleBits_) {
        case 1: return &RowConverter::MapToColours<1>;
        case 2: return &RowConverter::MapToColours<2>;
        case 4: return &RowConverter::MapToColours<4>;
        case 16: return &RowConverter::GreySixteenWithKey;
        default: return &RowConverter::MapToColours<8>;
        }
    }
    if (isSixteen) return &RowConverter::ReduceSixteen;
    return sampleBits_ == 2 ? &RowConverter::ExpandTwoBit : &RowConverter::CopyRow;
}

void RowConverter::CopyRow(const Byte* samples, Byte* row) const {
    std::memcpy(row, samples, (width_ * static_cast<std::size_t>(sampleBits_) + 7) / 8);
}

void RowConverter::ExpandTwoBit(const Byte* samples, Byte* row) const { SplitBits(samples, row, width_, 2); }

void RowConverter::ReduceSixteen(const Byte* samples, Byte* row) const {
    for (std::size_t x = 0; x < width_; ++x) row[x] = samples[2 * x];
}

template <unsigned Bits>
void RowConverter::MapToColours(const Byte* samples, Byte* row) const {
    constexpr std::size_t PerByte = 8 / Bits;
    std::size_t x = 0;
    for (; x + PerByte <= width_; ++samples, x += PerByte) {
        for (unsigned i = 0; i < PerByte; ++i) StorePixel(row, x + i, colours_[SampleOf<Bits>(*samples, i)]);
    }
    for (unsigned i = 0; x < width_; ++i, ++x) StorePixel(row, x, colours_[SampleOf<Bits>(*samples, i)]);
}

// The key is compared with all 16 bits, before the low ones are dropped.
void RowConverter::GreySixteenWithKey(const Byte* samples, Byte* row) const {
    const std::int32_t key = KeySample(png_, 0);
    for (std::size_t x = 0; x < width_; ++x, samples += 2) {
        const std::uint32_t alpha = SampleAt<2>(samples) == key ? 0 : Opaque;
        StorePixel(row, x, PackGrey(samples[0]) | alpha);
    }
}

template <std::size_t SampleSize>
void RowConverter::RgbToBgr(const Byte* samples, Byte* row) const {
    for (std::size_t x = 0; x < width_; ++x, samples += 3 * SampleSize, row += 3) {
        row[0] = samples[2 * SampleSize];
        row[1] = samples[SampleSize];
        row[2] = samples[0];
    }
}

template <std::size_t SampleSize>
void RowConverter::RgbWithKey(const Byte* samples, Byte* row) const {
    const std::int32_t red = KeySample(png_, 0);
    const std::int32_t green = KeySample(png_, 1);
    const std::int32_t blue = KeySample(png_, 2); // -1, so never equal, when the chunk is too short
    for (std::size_t x = 0; x < width_; ++x, samples += 3 * SampleSize) {
        const Byte* const second = samples + SampleSize;
        const Byte* const third = second + SampleSize;
        const bool isKey = SampleAt<SampleSize>(samples) == red && SampleAt<SampleSize>(second) == green &&
                           SampleAt<SampleSize>(third) == blue;
        StorePixel(row, x, PackColour(*samples, *second, *third) | (isKey ? 0 : Opaque));
    }
}

template <std::size_t SampleSize>
void RowConverter::GreyAlphaToBgra(const Byte* samples, Byte* row) const {
    for (std::size_t x = 0; x < width_; ++x, samples += 2 * SampleSize) {
        StorePixel(row, x, PackGrey(samples[0]) | std::uint32_t{samples[SampleSize]} << 24);
    }
}

template <std::size_t SampleSize>
void RowConverter::RgbaToBgra(const Byte* samples, Byte* row) const {
    for (std::size_t x = 0; x < width_; ++x, samples += 4 * SampleSize) {
        const std::uint32_t colour = PackColour(samples[0], samples[SampleSize], samples[2 * SampleSize]);
        StorePixel(row, x, colour | std::uint32_t{samples[3 * SampleSize]} << 24);
    }
}

} // namespace vantik

#include "png/AncillaryChunks.h"

#include <algorithm>
#include <cmath>

#include "base/Checked.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "png/ColourTables.h"
#include "png/MemoryLimit.h"

namespace vantik {

namespace {

std::u16string Decode(ByteView data) {
    return DecodeAnsi({reinterpret_cast<const char*>(data.data()), data.size()});
}

std::u16string TwoDigits(std::uint8_t number) {
    const std::u16string digits = DecimalText(number);
    return digits.size() < 2 ? u"0" + digits : digits;
}

constexpr std::int32_t PackRgb(std::uint32_t red, std::uint32_t green, std::uint32_t blue) noexcept {
    return static_cast<std::int32_t>(red | green << 8 | blue << 16);
}

std::uint32_t SampleAt(ByteView data, std::size_t index) noexcept {
    return static_cast<std::uint32_t>(data[2 * index] << 8 | data[2 * index + 1]);
}

double HighestSample(std::int32_t bitDepth) { return std::ldexp(1.0, bitDepth) - 1; }

std::int32_t GreyBackground(ByteView data, std::int32_t bitDepth) {
    if (data.size() != 2 || SampleAt(data, 0) > HighestSample(bitDepth)) return 0;
    const std::uint32_t level = GreyLevel(static_cast<std::int32_t>(SampleAt(data, 0)), bitDepth);
    return PackRgb(level, level, level);
}

// A sample beyond its own bit depth counts as the highest.
std::uint32_t ScaleSample(std::uint32_t sample, std::int32_t bitDepth) {
    const double highest = HighestSample(bitDepth);
    if (highest <= 0) return 0;
    return static_cast<std::uint32_t>(RoundHalfToEven(std::min<double>(sample, highest) * 255 / highest));
}

std::int32_t RgbBackground(ByteView data, std::int32_t bitDepth) {
    if (data.size() != 6) return 0;
    const auto scaled = [&](std::size_t channel) { return ScaleSample(SampleAt(data, channel), bitDepth); };
    return PackRgb(scaled(0), scaled(1), scaled(2));
}

std::int32_t PaletteBackground(ByteView data, ByteView palette) noexcept {
    if (data.size() != 1) return 0;
    const std::size_t entry = 3 * std::size_t{data[0]};
    if (entry + 3 > palette.size()) return 0;
    return PackRgb(palette[entry], palette[entry + 1], palette[entry + 2]);
}

constexpr std::int32_t TextExpansion = 12; // the size that a compressed text is expected to have

ByteView KeywordOf(ByteView data) noexcept { return data.first(FindZero(data)); }

ByteView CompressedPartOf(ByteView data) noexcept {
    // Behind the keyword: its separator, the compression method and the two bytes of the zlib header.
    constexpr std::size_t HeaderSize = 4;
    const ByteView rest = data.subspan(std::min(FindZero(data) + HeaderSize, data.size()));
    return rest.first(FindZero(rest));
}

} // namespace

std::size_t FindZero(ByteView data) noexcept {
    return static_cast<std::size_t>(std::find(data.begin(), data.end(), 0) - data.begin());
}

// Decoded beside the text; one growth makes room for the character 0, too.
void AppendText(std::u16string& text, ByteView data, std::int64_t otherMemory) {
    const auto size = static_cast<std::int64_t>(data.size());
    NeedMemory(otherMemory + HeldBytes(text) + ElementSize<std::u16string> * size + GrowthOf(text, size + 1));
    const std::u16string decoded = Decode(data);
    text.reserve(text.size() + decoded.size() + 1);
    text += decoded;
    text += u'\0';
}

void InflateTextChunk(std::u16string& text, ByteView data, Inflater& inflater, std::int64_t otherMemory) {
    AppendText(text, KeywordOf(data), otherMemory);
    const ByteView compressed = CompressedPartOf(data);
    const Checked lastIndex = Narrow<std::int32_t>(compressed.size()) - 1;
    std::int32_t expectedSize = TextExpansion * lastIndex;
    NeedMemory(otherMemory + HeldBytes(text) + expectedSize);
    inflater.Begin(compressed, expectedSize);
    inflater.ContinueTo(SIZE_MAX); // whatever the result will be, what was inflated counts
    AppendText(text, inflater.Output(), otherMemory + expectedSize);
    inflater.End();
}

std::u16string FormatTime(ByteView data) {
    const std::int32_t year = BigEndianInteger(data, 0);
    BigEndianLong(data, 3); // there are 7 bytes
    return TwoDigits(data[3]) + u'.' + TwoDigits(data[2]) + u'.' + DecimalText(year) + u' ' +
           TwoDigits(data[4]) + u':' + TwoDigits(data[5]) + u':' + TwoDigits(data[6]);
}

std::int32_t BackgroundColourOf(ByteView data, const ImageHeader& header, ByteView palette) {
    switch (header.ColourType) {
    case ColourType::Grey:
    case ColourType::GreyAlpha: return GreyBackground(data, header.BitDepth);
    case ColourType::Rgb:
    case ColourType::RgbAlpha: return RgbBackground(data, header.BitDepth);
    case ColourType::Palette: return PaletteBackground(data, palette);
    default: return 0;
    }
}

} // namespace vantik

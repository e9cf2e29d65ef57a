// Whole PNG files: nothing but run-time errors may come out of them, and the same picture each time.
#include <cstdlib>
#include <vector>

#include "base/RunTimeError.h"
#include "png/Composite.h"
#include "png/PngReader.h"
#include "render/PngSizeReading.h"

namespace vantik {

namespace {

// Large pictures cost seconds under the sanitizers and show nothing that small ones do not; the limits have a test.
constexpr std::int64_t MaxPixels = 1 << 20;

bool IsSmall(const ImageHeader& header) {
    return header.Width < MaxPixels && std::int64_t{header.Width} * header.Height <= MaxPixels;
}

void DecodeAndMix(PngReader& reader, const ConversionSettings& settings, std::uint8_t style) try {
    DibImage image = reader.Decode(settings);
    if (image.IsTransparent) image = Composite(image, style, nullptr);
    // Touch what a bitmap would be built from.
    unsigned sum = 0;
    if (image) {
        for (std::size_t i = 0; i < image.Stride() * static_cast<std::size_t>(image.Height); ++i) {
            sum += image.Pixels.data()[i];
        }
    }
    if (image && image.BitCount <= 8 && image.ColourTable.size() != std::size_t{1} << image.BitCount)
        std::abort();
    [[maybe_unused]] static volatile unsigned sink = sum;
} catch (const RunTimeError&) {
}

// The rows of the bitmap, the error number where there is no picture.
std::vector<std::uint8_t> RowsOf(PngReader& reader, ByteView data) try {
    MemorySource source(data);
    if (!reader.Read(source) || !IsSmall(reader.Contents().Header)) return {};
    const DibImage image = reader.Decode({.AppliesTransparency = true, .AppliesAlpha = true});
    if (!image) return {};
    const auto size = image.Stride() * static_cast<std::size_t>(image.Height);
    return {image.Pixels.data(), image.Pixels.data() + size};
} catch (const RunTimeError& error) {
    return {static_cast<std::uint8_t>(error.Number())};
}

// A reader that was used and reset is as a new one.
void ReadAfterReset(ByteView data) {
    PngReader reader;
    const auto first = RowsOf(reader, data);
    reader.Reset();
    if (RowsOf(reader, data) != first) std::abort();
}

void ReadSize(ByteView data) try {
    PngSize size;
    ReadPngMemorySize(data, size);
} catch (const RunTimeError&) {
}

void Read(ByteView data) try {
    MemorySource source(data);
    PngReader reader;
    if (!reader.Read(source) || !IsSmall(reader.Contents().Header)) return;
    const auto style = static_cast<std::uint8_t>(data.size() % 6);
    DecodeAndMix(reader, {.AppliesTransparency = true, .AppliesAlpha = true}, style);
    DecodeAndMix(reader, {}, style);
} catch (const RunTimeError&) {
}

} // namespace

} // namespace vantik

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vantik::ReadSize({data, size});
    vantik::Read({data, size});
    vantik::ReadAfterReset({data, size});
    return 0;
}

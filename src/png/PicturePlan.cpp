#include "png/PicturePlan.h"

#include <algorithm>

#include "png/MemoryLimit.h"
#include "png/PixelConversion.h"
#include "png/ScanlineLayout.h"

namespace vantik {

namespace {

// No deflate stream reaches more than 1032 bytes for one.
constexpr std::int64_t MaxExpansion = 1100;
constexpr std::int64_t ExpansionAllowance = 64 * 1024;

bool IsOneOf(std::int32_t value, std::initializer_list<std::int32_t> values) noexcept {
    for (const std::int32_t candidate : values) {
        if (candidate == value) return true;
    }
    return false;
}

// Whether a conversion is defined for the bit depth of this colour type.
bool IsDefined(const ImageHeader& header) noexcept {
    switch (header.ColourType) {
    case ColourType::Grey: return IsOneOf(header.BitDepth, {1, 2, 4, 8, 16});
    case ColourType::Palette: return IsOneOf(header.BitDepth, {1, 2, 4, 8});
    case ColourType::Rgb:
    case ColourType::GreyAlpha:
    case ColourType::RgbAlpha: return IsOneOf(header.BitDepth, {8, 16});
    default: return false;
    }
}

bool IsTransparent(const PngContents& png, const ConversionSettings& settings) noexcept {
    if (HasAlphaChannel(png.Header.ColourType)) return settings.AppliesAlpha;
    return png.HasTransparency && settings.AppliesTransparency;
}

std::int32_t OpaqueBitCount(const ImageHeader& header) noexcept {
    switch (header.ColourType) {
    case ColourType::Rgb: return 24;
    case ColourType::GreyAlpha:
    case ColourType::RgbAlpha: return 32;
    default: break;
    }
    const bool keepsDepth = header.Interlace != 1 && IsOneOf(header.BitDepth, {1, 4, 8});
    return keepsDepth ? header.BitDepth : 8;
}

// A transparent sample or colour is compared with all bits.
bool NeedsLowBytes(const PicturePlan& plan, const ImageHeader& header) noexcept {
    return plan.IsTransparent && !HasAlphaChannel(header.ColourType);
}

std::int32_t SampleBits(const PicturePlan& plan, const ImageHeader& header) noexcept {
    if (plan.Before.KeepsHighBytes) return 8;
    return header.Interlace == 1 ? std::max(header.BitDepth, 8) : header.BitDepth;
}

void ChooseConversion(PicturePlan& plan, const PngContents& png,
                      const ConversionSettings& settings) noexcept {
    const ImageHeader& header = png.Header;
    if (header.Interlace > 1 || !IsDefined(header)) {
        plan.IsUnconverted = true;
        plan.BitCount = IsOneOf(header.BitDepth, {1, 4, 8}) ? header.BitDepth : 0;
        return;
    }
    plan.IsTransparent = IsTransparent(png, settings);
    plan.BitCount = plan.IsTransparent ? 32 : OpaqueBitCount(header);
    plan.Before.KeepsHighBytes =
        header.BitDepth == 16 && header.Interlace == 0 && !NeedsLowBytes(plan, header);
    plan.SampleBits = SampleBits(plan, header);
    plan.UnfiltersInPlace =
        header.Interlace == 0 && plan.BitCount == plan.SampleBits * ChannelsOf(header.ColourType);
    plan.Before.SwapsRedBlue = plan.UnfiltersInPlace && plan.BitCount >= 24;
}

// Every product below stays in 64 bits once rows and columns are known to fit the memory.
std::int64_t RowsOf(std::int64_t rowSize, std::int64_t height) {
    if (rowSize > MaxMemory / height) Raise(RunTimeErrorNumber::OutOfMemory);
    return rowSize * height;
}

// The scanlines, the bitmap's rows, between them the samples of those that are not the same, and some single rows.
std::int64_t DecodingMemory(const PicturePlan& plan, const ImageHeader& header) {
    const std::int64_t rows = 4 * static_cast<std::int64_t>(plan.RowSize) + 2 * std::int64_t{header.Width};
    const std::int64_t memory = plan.RawSize + plan.DibSize + rows;
    if (header.Interlace > 1 || plan.UnfiltersInPlace) return memory;
    if (header.Interlace == 0) return memory + plan.RawSize;
    return memory +
           RowsOf(std::int64_t{header.Width} * static_cast<std::int64_t>(plan.BytesPerPixel), header.Height);
}

// A transparent picture beside the mixed one and a copy of the background; then what is drawn beside the device's bitmap,
// which some systems fill by way of a copy in its own format.
std::int64_t DrawingMemory(const PicturePlan& plan, const ImageHeader& header) {
    if (plan.BitCount == 0) return 0;
    const std::int64_t mixed = plan.IsTransparent ? RowsOf(DibStride(header.Width, 24), header.Height) : 0;
    const std::int64_t drawn = plan.IsTransparent ? mixed : plan.DibSize;
    const std::int64_t device = RowsOf(DibStride(header.Width, 32), header.Height);
    return std::max(plan.DibSize + 2 * mixed, drawn + 2 * device);
}

} // namespace

PicturePlan PlanPicture(const PngContents& png, const ConversionSettings& settings) {
    const ImageHeader& header = png.Header;
    const std::int32_t bits = BitsPerPixel(header);
    PicturePlan plan;
    ChooseConversion(plan, png, settings);

    const std::int64_t rowBytes = RowBytes(header.Width, bits);
    plan.RowSize = static_cast<std::size_t>(rowBytes - 1);
    plan.BytesPerPixel = static_cast<std::size_t>(BytesPerPixel(bits));
    // Every row of the picture is a scanline or, interlaced, shared out to scanlines of several passes, which are no shorter
    // together: so many bytes are needed at least.
    const std::int64_t needed = RowsOf(rowBytes, header.Height);
    // The allowance for interlaced images is the established formula, though narrow ones with few bits need more, or less.
    plan.RawSize = needed + (header.Interlace == 1 ? header.Height : 0);
    plan.DibSize = RowsOf(DibStride(header.Width, plan.BitCount), header.Height);
    NeedMemory(png.Memory() + std::max(DecodingMemory(plan, header), DrawingMemory(plan, header)));

    const auto compressed = static_cast<std::int64_t>(png.ImageData.size());
    if (needed > MaxExpansion * compressed + ExpansionAllowance) {
        Raise(RunTimeErrorNumber::SubscriptOutOfRange);
    }
    return plan;
}

} // namespace vantik

#include "png/PicturePlan.h"

#include "base/RunTimeError.h"
#include "png/PixelConversion.h"
#include "png/ScanlineLayout.h"

namespace vantik {

namespace {

constexpr std::int64_t MaxMemory = std::int64_t{1} << 30;

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
    // Grey and alpha of 16 bits have the bitmap's size too, but not its layout.
    const bool fits = header.BitDepth <= 8 && plan.BitCount == BitsPerPixel(header);
    plan.UnfiltersInPlace = header.Interlace == 0 && fits;
    plan.SwapsRedBlue = plan.UnfiltersInPlace && plan.BitCount >= 24;
}

// Every product below stays in 64 bits once rows and columns are known to fit the memory.
std::int64_t RowsOf(std::int64_t rowSize, std::int64_t height) {
    if (rowSize > MaxMemory / height) Raise(RunTimeErrorNumber::OutOfMemory);
    return rowSize * height;
}

} // namespace

PicturePlan PlanPicture(const PngContents& png, const ConversionSettings& settings) {
    const ImageHeader& header = png.Header;
    const std::int64_t height = header.Height;
    const std::int32_t bits = BitsPerPixel(header);
    PicturePlan plan;
    ChooseConversion(plan, png, settings);

    const std::int64_t rowBytes = RowBytes(header.Width, bits);
    plan.RowSize = static_cast<std::size_t>(rowBytes - 1);
    plan.BytesPerPixel = static_cast<std::size_t>(BytesPerPixel(bits));
    // The allowance for interlaced images is the established formula, though narrow ones with few bits need more.
    plan.RawSize = RowsOf(rowBytes, height) + (header.Interlace == 1 ? height : 0);
    plan.DibSize = RowsOf(DibStride(header.Width, plan.BitCount), height);

    std::int64_t memory = plan.RawSize + plan.DibSize;
    if (header.Interlace == 1) {
        memory += RowsOf(std::int64_t{header.Width} * BytesPerPixel(bits), height);
    } else if (!plan.UnfiltersInPlace) {
        memory += plan.RawSize;
    }
    if (plan.IsTransparent) memory += RowsOf(DibStride(header.Width, 24), height);
    if (memory > MaxMemory) Raise(RunTimeErrorNumber::OutOfMemory);

    const auto compressed = static_cast<std::int64_t>(png.ImageData.size());
    if (plan.RawSize > MaxExpansion * compressed + ExpansionAllowance) {
        Raise(RunTimeErrorNumber::SubscriptOutOfRange);
    }
    return plan;
}

} // namespace vantik

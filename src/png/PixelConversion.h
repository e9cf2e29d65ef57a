// From the contents of a PNG to a picture: inflate, unfilter or de-interlace, and rewrite the samples.
#pragma once

#include "png/DibImage.h"
#include "png/Inflate.h"
#include "png/PngContents.h"

namespace vantik {

struct ConversionSettings {
    bool AppliesTransparency = false; // tRNS makes the picture transparent
    bool AppliesAlpha = false;        // so does an alpha channel; else its bytes come along without effect
};

constexpr bool HasAlphaChannel(std::int32_t colourType) noexcept {
    return colourType == ColourType::GreyAlpha || colourType == ColourType::RgbAlpha;
}

// Transparent pictures come bottom-up, ready to be mixed with a background; all others top-down. No picture comes from
// a width or height below 1. Where nothing is defined for the colour type, its bit depth or the interlace method, the bytes
// are taken for a bitmap of the bit depth if that is 1, 4 or 8; else no picture comes either.
//
// Raises OutOfMemory when decoding and drawing it would take more than 1 GiB in all, and SubscriptOutOfRange when there are
// fewer scanlines than the picture needs.
DibImage DecodePixels(const PngContents& png, const ConversionSettings& settings, Inflater& inflater);

} // namespace vantik

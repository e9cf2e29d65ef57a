// Which way a picture takes from its scanlines to a bitmap, and what memory that needs: known before any of it is done.
#pragma once

#include <cstddef>
#include <cstdint>

#include "png/FilteredRow.h"
#include "png/PngContents.h"

namespace vantik {

struct ConversionSettings;

struct PicturePlan {
    std::int32_t BitCount = 0;     // of the bitmap; 0: no bitmap
    bool IsTransparent = false;    // 32 bits to be mixed with a background
    bool IsUnconverted = false;    // nothing is defined for this kind of picture
    bool UnfiltersInPlace = false; // unfiltered rows already are the bitmap's rows
    Rearrangement Before;          // of the filtered rows
    std::int32_t SampleBits = 0;   // of the unfiltered or de-interlaced samples
    std::size_t RowSize = 0;       // of a scanline without its filter byte
    std::size_t BytesPerPixel = 0;
    std::int64_t RawSize = 0; // of all scanlines
    std::int64_t DibSize = 0;
};

// Raises OutOfMemory when decoding and drawing the picture would at any time take more than 1 GiB in all, and
// SubscriptOutOfRange where the compressed data cannot possibly hold the scanlines.
PicturePlan PlanPicture(const PngContents& png, const ConversionSettings& settings);

} // namespace vantik

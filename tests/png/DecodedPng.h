// Decoding in one line, for tests.
#pragma once

#include "png/PngReader.h"
#include "tests/png/PngBytes.h"
#include "tools/pngprobe/PixelExport.h"

namespace vantik {

inline constexpr ConversionSettings Everything = {.AppliesTransparency = true, .AppliesAlpha = true};
inline constexpr ConversionSettings Nothing = {};

inline DibImage DecodePng(const Bytes& png, const ConversionSettings& settings = Everything) {
    MemorySource source(png);
    PngReader reader;
    return reader.Read(source) ? reader.Decode(settings) : DibImage();
}

inline Bytes RgbaOf(const Bytes& png) { return ToRgba(DecodePng(png)); }

// A picture of one stored block whose rows carry their filter bytes.
inline PngBytes PictureWith(const HeaderFields& fields, const Bytes& filteredRows,
                            const Bytes& palette = {}) {
    PngBytes png;
    png.Header(fields);
    if (!palette.empty()) png.Chunk("PLTE", palette);
    return png.StoredImage(filteredRows).End();
}

} // namespace vantik

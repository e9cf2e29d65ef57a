// Device-dependent bitmaps built from decoded pictures.
#pragma once

#include "gfx/Handles.h"
#include "png/DibImage.h"

namespace vantik {

namespace CBitmap {

// Whether the rows of a picture give in this context just what a bitmap made of them would: a memory context of 32 bits
// with no scaling, mirroring or matching of colours in between.
bool TakesRowsAsTheyAre(HDC target) noexcept;

// Each for pictures of its depth. In the format of a context that takes rows as they are, or of the screen when that is
// null; empty when the bitmap cannot be had.
OwnedBitmap BuildDIB1(const DibImage& image, HDC rowTaker) noexcept;
OwnedBitmap BuildDIB4(const DibImage& image, HDC rowTaker) noexcept;
OwnedBitmap BuildDIB8(const DibImage& image, HDC rowTaker) noexcept;
OwnedBitmap BuildDIB24or32(const DibImage& image, HDC rowTaker) noexcept;

// Draws the picture without a bitmap on a context that takes its rows. Selecting a bitmap costs some systems more than
// all the rest of drawing an icon.
bool DrawRows(const DibImage& image, HDC target, std::int32_t x, std::int32_t y) noexcept;

} // namespace CBitmap

} // namespace vantik

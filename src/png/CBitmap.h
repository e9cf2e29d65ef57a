// Device-dependent bitmaps built from decoded pictures.
//
// The module keeps one handle, the bitmap built most recently. Building another one replaces the handle and deletes
// nothing: a bitmap belongs to whoever takes the handle. Each thread has its own, since controls on two threads must not
// take each other's bitmaps.
#pragma once

#include "platform/mDeclares.h"
#include "png/DibImage.h"

namespace vantik {

namespace CBitmap {

// Each for pictures of its depth. The new handle; null when the bitmap cannot be created.
HBITMAP BuildDIB1(const DibImage& image) noexcept;
HBITMAP BuildDIB4(const DibImage& image) noexcept;
HBITMAP BuildDIB8(const DibImage& image) noexcept;
HBITMAP BuildDIB24or32(const DibImage& image) noexcept;

// Draws the picture without a bitmap, where that gives the same as copying a bitmap of it; false, and nothing drawn, where
// it does not. Selecting a bitmap costs some systems more than all the rest of drawing an icon.
bool DrawRows(const DibImage& image, HDC target, std::int32_t x, std::int32_t y) noexcept;

HBITMAP Handle() noexcept;

// Hands the bitmap over to the caller, who deletes it.
HBITMAP TakeHandle() noexcept;

// Deletes the bitmap that nobody took.
void DropHandle() noexcept;

} // namespace CBitmap

} // namespace vantik

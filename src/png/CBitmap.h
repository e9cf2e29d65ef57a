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

// The new handle; null when the bitmap cannot be created.
HBITMAP BuildDIB(const DibImage& image) noexcept;

HBITMAP Handle() noexcept;

// Hands the bitmap over to the caller, who deletes it.
HBITMAP TakeHandle() noexcept;

// Deletes the bitmap that nobody took.
void DropHandle() noexcept;

} // namespace CBitmap

} // namespace vantik

// Picture objects from bytes.
#pragma once

#include <span>

#include "platform/ComPtr.h"

namespace vantik {

// The picture that the platform's loader finds in the bytes (BMP, JPEG and other OLE picture formats); null when it
// finds none.
ComPtr<IPicture> PictureFrom(std::span<const BYTE> bytes) noexcept;

// A picture object that holds no picture.
ComPtr<IPictureDisp> EmptyPicture() noexcept;

} // namespace vantik

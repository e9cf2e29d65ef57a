// Paints decoded pictures onto device contexts.
#pragma once

#include <cstdint>
#include <memory>

#include "gfx/Handles.h"
#include "png/Composite.h"

namespace vantik {

struct PicturePlace {
    HDC PicBox = nullptr; // receives the picture at X, Y
    std::int32_t X = 0, Y = 0;
    std::uint8_t Style = 0; // as Composite takes it
};

// A transparent picture is mixed with the background; one that nobody else holds is gone before the system's bitmap is made
// of the mixed one. The bitmap that was painted; empty when it could not be had. Raises OutOfMemory.
OwnedBitmap PaintPicture(std::shared_ptr<const DibImage> image, BackgroundSource& background,
                         const PicturePlace& place);

} // namespace vantik

// Where the pieces of the window stand.
#pragma once

#include <array>

#include "host/Widgets.h"

namespace vantik {

struct Layout {
    Box BitmapHead, Bitmap, PiecesHead, Pieces, FaultsHead, Faults, Status;
    std::array<Box, 4> PreviewHeads, Previews; // top, bottom, left, right
};

// Lengths are those of a screen of 96 dots per inch.
Layout LayoutFor(SIZE client, int dotsPerInch);

} // namespace vantik

// The skin's bitmap enlarged, with its rectangles drawn around and numbered.
#pragma once

#include "tools/skinpreview/PreviewedSkin.h"

namespace vantik {

struct Cutout {
    Snapshot Picture;
    int Zoom = 1;
    POINT Origin = {}; // of the bitmap in the picture
};

Cutout MakeCutout(const PreviewedSkin& skin, std::uint32_t background);

// "5  LeftPic0  0..7, 0..31  8 x 32" for every rectangle that is given.
std::vector<std::wstring> ListOfRects(const PreviewedSkin& skin);

} // namespace vantik

// The smallest complete skin: what a new one begins with.
#pragma once

#include <string>

#include "tools/skinview/model/PixelImage.h"

namespace vantik {

inline constexpr const char* NewBitmapName = "skin.bmp";

// It names the four buttons close.png, back.png, forth.png and menu.png.
std::string NewDefinition();
PixelImage NewBitmap();

// The text of its SETTINGS.TXT, for bars that lie or for those that stand.
std::string NewSettings(bool lying);

} // namespace vantik

// The skin's bitmap: whether it is there, and a picture that the control can use.
#pragma once

#include <optional>

#include "skin/PictureFile.h"
#include "tools/skin/DefinitionText.h"
#include "tools/skin/Report.h"
#include "tools/skin/SkinSource.h"

namespace vantik {

// The bitmap's format when it is a bitmap.
std::optional<BitmapFormat> ReportBitmap(const DefinitionText& text, const SkinSource& source,
                                         Report& report);

} // namespace vantik

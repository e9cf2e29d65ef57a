// The skin's bitmap: whether it is there, and a picture that the control can use.
#pragma once

#include <optional>

#include "check/DefinitionText.h"
#include "check/Report.h"
#include "check/SkinSource.h"
#include "skin/PictureFile.h"

namespace vantik {

// The bitmap's format when it is a bitmap.
std::optional<BitmapFormat> ReportBitmap(const DefinitionText& text, const SkinSource& source,
                                         Report& report);

} // namespace vantik

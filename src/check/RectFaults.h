// Rectangles that are missing, lie outside the bitmap, or do not fit each other.
#pragma once

#include <optional>

#include "check/DefinitionText.h"
#include "check/Report.h"
#include "skin/PictureFile.h"

namespace vantik {

// Without a bitmap nothing is measured against it.
void ReportRects(const DefinitionText& text, const std::optional<BitmapFormat>& bitmap, Report& report);

} // namespace vantik

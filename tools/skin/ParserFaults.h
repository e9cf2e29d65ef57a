// Lines that the control's own parser refuses.
#pragma once

#include "tools/skin/DefinitionText.h"
#include "tools/skin/Report.h"

namespace vantik {

// The parse goes on behind a line that ends it in the control, so that all of them are found.
void ReportRefusedLines(const DefinitionText& text, Report& report);

} // namespace vantik

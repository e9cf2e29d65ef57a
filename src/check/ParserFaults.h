// Lines that the control's own parser refuses.
#pragma once

#include "check/DefinitionText.h"
#include "check/Report.h"

namespace vantik {

// The parse goes on behind a line that ends it in the control, so that all of them are found.
void ReportRefusedLines(const DefinitionText& text, Report& report);

} // namespace vantik

// Definitions that were saved in an encoding other than the system's code page.
#pragma once

#include "tools/skin/DefinitionText.h"
#include "tools/skin/Report.h"

namespace vantik {

// False when nothing else can be said of a text in such an encoding.
bool ReportEncoding(const DefinitionText& text, Report& report);

} // namespace vantik

// Definitions that were saved in an encoding other than the system's code page.
#pragma once

#include "check/DefinitionText.h"
#include "check/Report.h"

namespace vantik {

// False when nothing else can be said of a text in such an encoding.
bool ReportEncoding(const DefinitionText& text, Report& report);

} // namespace vantik

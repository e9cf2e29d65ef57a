// Entries that the control reads, but hardly as they were meant.
#pragma once

#include "tools/skin/DefinitionText.h"
#include "tools/skin/Report.h"

namespace vantik {

void ReportDoubledKeys(const DefinitionText& text, Report& report);
void ReportOddNumbers(const DefinitionText& text, Report& report);

} // namespace vantik

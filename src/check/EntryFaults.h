// Entries that the control reads, but hardly as they were meant.
#pragma once

#include "check/DefinitionText.h"
#include "check/Report.h"

namespace vantik {

void ReportDoubledKeys(const DefinitionText& text, Report& report);
void ReportOddNumbers(const DefinitionText& text, Report& report);

} // namespace vantik

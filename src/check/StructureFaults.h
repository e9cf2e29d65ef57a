// Where a definition starts and ends, its sections, and lines that say nothing.
#pragma once

#include "check/DefinitionText.h"
#include "check/Report.h"

namespace vantik {

// False when the definition does not start, so that nothing in it counts.
bool ReportStart(const DefinitionText& text, Report& report);

void ReportEnd(const DefinitionText& text, Report& report);
void ReportSections(const DefinitionText& text, Report& report);
void ReportIdleLines(const DefinitionText& text, Report& report);

} // namespace vantik

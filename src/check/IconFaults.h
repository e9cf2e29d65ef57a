// The skin's PNG icons and the roles that four of them have.
#pragma once

#include "check/DefinitionText.h"
#include "check/Report.h"
#include "check/SkinSource.h"

namespace vantik {

void ReportIcons(const DefinitionText& text, const SkinSource& source, Report& report);

} // namespace vantik

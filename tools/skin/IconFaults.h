// The skin's PNG icons and the roles that four of them have.
#pragma once

#include "tools/skin/DefinitionText.h"
#include "tools/skin/Report.h"
#include "tools/skin/SkinSource.h"

namespace vantik {

void ReportIcons(const DefinitionText& text, const SkinSource& source, Report& report);

} // namespace vantik

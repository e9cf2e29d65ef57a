// The file that an entry names, and what is wrong with the name.
#pragma once

#include <optional>
#include <string>

#include "check/DefinitionText.h"
#include "check/Report.h"
#include "check/SkinSource.h"

namespace vantik {

// Nothing when there is no such file, or its name has a fault that keeps it from being found; the effect says what the
// control does then.
std::optional<SkinFile> FindNamedFile(const DefinitionText& text, const DefinitionLine& entry,
                                      const SkinSource& source, const std::string& effectOfMissing,
                                      Report& report);

} // namespace vantik

// The files of a skin on disk.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "check/DefinitionText.h"
#include "host/SkinSettings.h"

namespace vantik {

// HostError when it cannot be read, or is far too large for a definition.
std::string ReadDefinition(const std::filesystem::path& path);

// The definition, what it names and the settings: all that a skin's look depends on.
std::vector<std::filesystem::path> FilesOfSkin(const std::filesystem::path& path,
                                               const DefinitionText& definition);

// The property values that lie beside the definition; for bars that stand, those for the sides where there are any.
// Empty without the file. HostError for one that cannot be read.
std::vector<SkinSetting> SettingsBeside(const std::filesystem::path& definition, bool lying);

} // namespace vantik

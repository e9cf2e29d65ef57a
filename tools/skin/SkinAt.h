// The skin whose definition has this path.
#pragma once

#include <filesystem>

#include "check/FolderSource.h"

namespace vantik {

inline FolderSource SkinAt(const std::filesystem::path& definition) {
    const std::u16string path = definition.u16string(), name = definition.filename().u16string();
    return {path.substr(0, path.size() - name.size()), name};
}

} // namespace vantik

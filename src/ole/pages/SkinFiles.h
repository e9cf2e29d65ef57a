// The skins that lie below the application's folder.
#pragma once

#include <string>
#include <vector>

namespace vantik {

// The folders with a definition in them, as SkinPath names them: "Skin", "skins\light".
std::vector<std::u16string> SkinFolders();

// The definitions in a folder of that name, as SkinFile names them.
std::vector<std::u16string> SkinDefinitions(const std::u16string& folder);

} // namespace vantik

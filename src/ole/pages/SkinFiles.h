// The skins that lie below the application's folder.
#pragma once

#include <string>
#include <vector>

namespace vantik {

// The folders with a definition in them, as SkinPath names them: "Skin", "skins\light".
std::vector<std::u16string> SkinFolders();

// The definitions in a folder of that name, as SkinFile names them.
std::vector<std::u16string> SkinDefinitions(const std::u16string& folder);

// The plainest name: the others are variants. There is at least one.
const std::u16string& PlainestOf(const std::vector<std::u16string>& definitions);

// Whole paths: of the folder, with a separator behind it, and of the settings that go with a definition in it.
std::u16string FolderOfSkin(const std::u16string& folder);
std::u16string SettingsOfSkin(const std::u16string& folder, const std::u16string& definition);

} // namespace vantik

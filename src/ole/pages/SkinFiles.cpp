#include "ole/pages/SkinFiles.h"

#include <algorithm>

#include "base/Text.h"
#include "platform/Files.h"
#include "platform/mDeclares.h"

namespace vantik {

namespace {

constexpr std::size_t MostFolders = 500; // an application's folder may be the root of a disk
constexpr int Depth = 2;

bool IsShown(const WIN32_FIND_DATAW& entry) noexcept {
    constexpr DWORD Hidden = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_REPARSE_POINT;
    return !(entry.dwFileAttributes & Hidden) && entry.cFileName[0] != L'.';
}

bool IsFolder(const WIN32_FIND_DATAW& entry) noexcept {
    return entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY;
}

// Names of entries that match the pattern: folders, or files.
std::vector<std::u16string> Entries(const std::u16string& pattern, bool folders) {
    std::vector<std::u16string> names;
    WIN32_FIND_DATAW entry = {};
    struct Search {
        HANDLE Handle;
        ~Search() {
            if (Handle != INVALID_HANDLE_VALUE) FindClose(Handle);
        }
    } const search{FindFirstFileW(AsWide(pattern), &entry)};
    if (search.Handle == INVALID_HANDLE_VALUE) return names;
    do
        if (IsShown(entry) && IsFolder(entry) == folders) names.push_back(FromWide(entry.cFileName));
    while (FindNextFileW(search.Handle, &entry));
    std::ranges::sort(names);
    return names;
}

std::u16string Below(const std::u16string& folder, const std::u16string& name) {
    return folder.empty() ? name : folder + u"\\" + name;
}

// Each with what is below it, as they stand in a tree.
void Collect(const std::u16string& folder, int depth, std::size_t& budget,
             std::vector<std::u16string>& found) {
    for (const std::u16string& name : Entries(ApplicationFolder() + u"\\" + Below(folder, u"*"), true)) {
        if (budget == 0) return;
        --budget;
        const std::u16string path = Below(folder, name);
        if (!SkinDefinitions(path).empty()) found.push_back(path);
        if (depth > 1) Collect(path, depth - 1, budget, found);
    }
}

} // namespace

std::vector<std::u16string> SkinFolders() {
    std::vector<std::u16string> found;
    std::size_t budget = MostFolders;
    Collect({}, Depth, budget, found);
    return found;
}

std::vector<std::u16string> SkinDefinitions(const std::u16string& folder) {
    return Entries(FolderOfSkin(folder) + u"*.ini", false);
}

const std::u16string& PlainestOf(const std::vector<std::u16string>& definitions) {
    return *std::ranges::min_element(definitions, {}, &std::u16string::size);
}

std::u16string FolderOfSkin(const std::u16string& folder) {
    return ApplicationFolder() + u"\\" + folder + u"\\";
}

// A definition for bars on the left or the right has settings of its own: SKIN-SIDES.INI those of SETTINGS-SIDES.TXT.
std::u16string SettingsOfSkin(const std::u16string& folder, const std::u16string& definition) {
    constexpr std::u16string_view Sides = u"-SIDES.INI";
    const bool isForSides = UpperCase(definition).ends_with(Sides);
    return FolderOfSkin(folder) + (isForSides ? u"SETTINGS-SIDES.TXT" : u"SETTINGS.TXT");
}

} // namespace vantik

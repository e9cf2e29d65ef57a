#include "Skins.h"

#include <algorithm>
#include <filesystem>

#include "platform/mDeclares.h"

namespace vantik {

namespace {

std::filesystem::path ProgramFolder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path).parent_path();
}

} // namespace

std::vector<SkinChoice> FindSkins() {
    std::vector<SkinChoice> skins;
    std::error_code missing; // no folder, no further skins
    for (const auto& entry : std::filesystem::directory_iterator(ProgramFolder() / "Skins", missing)) {
        const std::wstring name = entry.path().filename().wstring();
        if (std::filesystem::exists(entry.path() / "skin.ini")) skins.push_back({name, L"Skins\\" + name});
    }
    std::sort(skins.begin(), skins.end(), [](const auto& a, const auto& b) { return a.Name < b.Name; });
    skins.insert(skins.begin(), SkinChoice{L"Built-in", L"Temp"});
    return skins;
}

} // namespace vantik

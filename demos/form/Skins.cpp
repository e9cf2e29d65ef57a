#include "Skins.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "platform/mDeclares.h"

namespace vantik {

namespace {

std::filesystem::path ProgramFolder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path).parent_path();
}

// Pixels that set icons and captions nicely into the bars of the built-in skin.
const std::vector<SkinSetting> BuiltInLook = {
    {L"BarWidth", L"96"},    {L"TabToTab", L"0"},     {L"TabBorder", L"False"}, {L"CaptionPos", L"1"},
    {L"CaptionXjust", L"0"}, {L"CaptionYjust", L"0"}, {L"CaptionColor0", L"0"}, {L"CaptionColor1", L"0"},
    {L"IcoXjust", L"0"},     {L"IcoYjust", L"0"},
};

// Of the shipped skins, for the pages in their order.
const std::vector<std::wstring> PageIcons = {L"User", L"Picture", L"Database", L"Edit", L"Info"};

SkinVariant BuiltIn(SkinSetting iconShift, SkinSetting captionShift) {
    SkinVariant variant = {L"skin.ini", BuiltInLook};
    variant.Settings.push_back(std::move(iconShift));
    variant.Settings.push_back(std::move(captionShift));
    return variant;
}

SkinChoice BuiltInSkin() {
    return {L"Built-in",
            L"Temp",
            {L"Sun", L"HandNo"},
            BuiltIn({L"IcoXjust", L"2"}, {L"CaptionYjust", L"4"}),
            BuiltIn({L"IcoYjust", L"2"}, {L"CaptionXjust", L"0"})};
}

SkinVariant ReadVariant(const std::filesystem::path& folder, const wchar_t* file, const wchar_t* settings) {
    return {file, ReadSkinSettings((folder / settings).wstring())};
}

// Both variants with their settings; what else lies there is no skin to choose.
bool IsWhole(const std::filesystem::path& folder) {
    constexpr std::array files = {L"SKIN.INI", L"SETTINGS.TXT", L"SKIN-SIDES.INI", L"SETTINGS-SIDES.TXT"};
    return std::ranges::all_of(files,
                               [&](const wchar_t* file) { return std::filesystem::exists(folder / file); });
}

} // namespace

std::vector<SkinChoice> FindSkins() {
    std::vector<SkinChoice> skins;
    std::error_code missing; // no folder, no further skins
    for (const auto& entry : std::filesystem::directory_iterator(ProgramFolder() / "Skins", missing)) {
        const std::wstring name = entry.path().filename().wstring();
        if (!IsWhole(entry.path())) continue;
        skins.push_back({name, L"Skins\\" + name, PageIcons,
                         ReadVariant(entry.path(), L"SKIN.INI", L"SETTINGS.TXT"),
                         ReadVariant(entry.path(), L"SKIN-SIDES.INI", L"SETTINGS-SIDES.TXT")});
    }
    std::sort(skins.begin(), skins.end(), [](const auto& a, const auto& b) { return a.Name < b.Name; });
    skins.insert(skins.begin(), BuiltInSkin());
    return skins;
}

} // namespace vantik

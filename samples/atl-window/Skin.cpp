#include "Skin.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

std::filesystem::path ProgramFolder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path).parent_path();
}

long ToColour(const std::wstring& text) {
    const unsigned long rgb = std::wcstoul(text.c_str() + 1, nullptr, 16);
    return static_cast<long>((rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16);
}

// #RRGGBB, True, the name of a constant (their places here are their values), or a number.
long ToNumber(const std::wstring& text) {
    constexpr std::array constants = {L"AlignLeft", L"AlignMiddle", L"AlignRight"};
    const auto constant = std::find(constants.begin(), constants.end(), text);
    if (constant != constants.end()) return static_cast<long>(constant - constants.begin());
    if (text == L"True") return VARIANT_TRUE;
    if (text == L"False") return VARIANT_FALSE;
    return text[0] == L'#' ? ToColour(text) : std::wcstol(text.c_str(), nullptr, 10);
}

} // namespace

void UseSkin(const Object& control, const std::wstring& name) {
    control.Put(L"SkinPath", L"Skins\\" + name);
    control.Put(L"SkinFile", L"SKIN.INI");
    std::wifstream settings(ProgramFolder() / L"Skins" / name / L"SETTINGS.TXT");
    std::wstring property, equals, value;
    for (std::wstring line; std::getline(settings, line);) {
        if (line.starts_with(L"//")) continue;
        std::wistringstream words(line);
        if (words >> property >> equals >> value) control.Put(property.c_str(), ToNumber(value));
    }
}

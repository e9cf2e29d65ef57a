#include "host/SkinSettings.h"

#include <algorithm>
#include <cwchar>
#include <filesystem>
#include <fstream>
#include <optional>

#include "host/HostError.h"

namespace vantik {

namespace {

bool SameName(const std::wstring& a, const std::wstring& b) noexcept {
    return lstrcmpiW(a.c_str(), b.c_str()) == 0;
}

std::wstring WithoutBlanks(const std::wstring& text) {
    constexpr const wchar_t* Blanks = L" \t\r";
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::wstring::npos) return {};
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

std::optional<SkinSetting> ParseSetting(const std::wstring& line) {
    const std::size_t equals = line.find(L'=');
    if (equals == std::wstring::npos) return std::nullopt;
    const SkinSetting setting = {WithoutBlanks(line.substr(0, equals)),
                                 WithoutBlanks(line.substr(equals + 1))};
    if (setting.Property.empty() || setting.Value.empty()) return std::nullopt;
    return setting;
}

std::optional<std::int32_t> ToColour(const std::wstring& text) {
    constexpr const wchar_t* Digits = L"0123456789abcdefABCDEF";
    if (text.size() != 7 || text[0] != L'#' || text.find_first_not_of(Digits, 1) != std::wstring::npos)
        return std::nullopt;
    const unsigned long rgb = std::wcstoul(text.c_str() + 1, nullptr, 16);
    return static_cast<std::int32_t>((rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16);
}

} // namespace

std::vector<SkinSetting> ReadSkinSettings(const std::wstring& path) {
    std::ifstream file{std::filesystem::path(path)};
    if (!file) throw HostError("cannot read " + ToUtf8(path));
    std::vector<SkinSetting> settings;
    std::string bytes;
    for (int number = 1; std::getline(file, bytes); ++number) {
        const std::wstring line = WithoutBlanks(FromUtf8(bytes));
        if (line.empty() || line.starts_with(L"//")) continue;
        const auto setting = ParseSetting(line);
        if (!setting)
            throw HostError(ToUtf8(path) + ", line " + std::to_string(number) +
                            ": expected Property = Value");
        settings.push_back(*setting);
    }
    return settings;
}

Variant NumberFromText(const std::wstring& text, const std::vector<EnumerationMember>& constants) {
    if (const auto colour = ToColour(text)) return Variant(*colour);
    const auto constant =
        std::find_if(constants.begin(), constants.end(),
                     [&](const EnumerationMember& each) { return SameName(each.Name, text); });
    if (constant != constants.end()) return Variant(constant->Value);
    return Variant(text).As(VT_I4);
}

Variant SettingFromText(const std::wstring& text, const std::vector<EnumerationMember>& constants) {
    if (SameName(text, L"True")) return Variant(true);
    if (SameName(text, L"False")) return Variant(false);
    return NumberFromText(text, constants);
}

} // namespace vantik

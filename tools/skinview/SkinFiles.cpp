#include "SkinFiles.h"

#include <array>
#include <fstream>
#include <iterator>

#include "host/HostError.h"
#include "tools/skinview/model/LocalNames.h"

namespace vantik {

namespace {

constexpr std::uintmax_t MostBytes = 1 << 20;
constexpr std::array SettingsNames = {L"SETTINGS.TXT", L"SETTINGS-SIDES.TXT"};

std::string NameOf(const std::filesystem::path& path) { return ToUtf8(path.wstring()); }

std::filesystem::path InFolderOf(const std::filesystem::path& definition, const std::u16string& name) {
    return definition.parent_path() / std::filesystem::path(name);
}

} // namespace

std::string ReadDefinition(const std::filesystem::path& path) {
    std::error_code error;
    if (std::filesystem::is_directory(path, error))
        throw HostError(NameOf(path) + " is a folder; open the definition in it");
    if (std::filesystem::file_size(path, error) > MostBytes && !error)
        throw HostError(NameOf(path) + " is larger than a megabyte: that is no skin definition");
    std::ifstream file(path, std::ios::binary);
    if (!file) throw HostError("cannot read " + NameOf(path));
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::filesystem::path> FilesOfSkin(const std::filesystem::path& path,
                                               const DefinitionText& definition) {
    std::vector<std::filesystem::path> files = {path};
    for (const wchar_t* settings : SettingsNames) files.push_back(path.parent_path() / settings);
    for (const LocalFile& file : WithLocalNames(definition).Files)
        files.push_back(InFolderOf(path, file.Named));
    return files;
}

std::vector<SkinSetting> SettingsBeside(const std::filesystem::path& definition, bool lying) {
    const auto folder = definition.parent_path();
    std::error_code missing;
    for (const wchar_t* name : {lying ? SettingsNames[0] : SettingsNames[1], SettingsNames[0]})
        if (std::filesystem::exists(folder / name, missing))
            return ReadSkinSettings((folder / name).wstring());
    return {};
}

} // namespace vantik

#include "tools/skin/FolderSource.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <optional>
#include <string_view>

#include "base/FilePath.h"
#include "base/Text.h"

namespace vantik {

namespace {

namespace fs = std::filesystem;

std::optional<std::string> ReadAll(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return std::nullopt;
    std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    if (file.bad()) return std::nullopt;
    return bytes;
}

SkinFile Read(const fs::path& path) {
    SkinFile file{path.filename().u16string(), false, {}};
    if (const auto bytes = ReadAll(path)) {
        file.CanBeRead = true;
        file.Bytes.assign(bytes->begin(), bytes->end());
    }
    return file;
}

// What a name, or one step of a path, stands for: a folder is entered whatever the case of its name.
std::vector<fs::path> EntriesNamed(const fs::path& folder, const std::u16string& name) {
    if (name == u"." || name == u"..") return {folder / fs::path(name)};
    std::vector<fs::path> found;
    std::error_code error;
    for (fs::directory_iterator each(folder, error), end; !error && each != end; each.increment(error))
        if (EqualIgnoringCase(each->path().filename().u16string(), name)) found.push_back(each->path());
    std::sort(found.begin(), found.end());
    return found;
}

std::vector<fs::path> Follow(const std::vector<fs::path>& folders, const std::u16string& name) {
    std::vector<fs::path> found;
    for (const fs::path& folder : folders)
        for (fs::path& entry : EntriesNamed(folder, name)) found.push_back(std::move(entry));
    return found;
}

bool IsFile(const fs::path& path) {
    std::error_code ignored;
    return fs::exists(path, ignored) && !fs::is_directory(path, ignored);
}

} // namespace

bool FolderSource::IsThere() const { return IsFile(definition_) && ReadAll(definition_).has_value(); }

std::string FolderSource::Name() const { return ToUtf8(definition_.u16string()); }

std::string FolderSource::Definition() const { return ReadAll(definition_).value_or(std::string()); }

std::vector<SkinFile> FolderSource::Find(const std::u16string& name) const {
    const fs::path folder = definition_.parent_path();
    std::vector<fs::path> paths = {folder.empty() ? fs::path(".") : folder};
    std::u16string_view rest = name;
    while (!rest.empty() && !paths.empty()) {
        const std::size_t end = std::min(rest.find_first_of(u"\\/"), rest.size());
        if (end > 0) paths = Follow(paths, std::u16string(rest.substr(0, end)));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    std::vector<SkinFile> files;
    for (const fs::path& path : paths)
        if (IsFile(path)) files.push_back(Read(path));
    return files;
}

} // namespace vantik

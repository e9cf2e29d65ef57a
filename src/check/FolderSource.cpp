#include "check/FolderSource.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "base/FilePath.h"
#include "base/FolderEntries.h"
#include "base/ReadableFile.h"

namespace vantik {

namespace {

constexpr std::u16string_view Separators = u"\\/";

// A folder can be opened on some systems.
ReadableFile Open(const std::u16string& path) {
    ReadableFile::Obstacle obstacle = {};
    return IsFolder(path) ? ReadableFile() : ReadableFile::Open(path, obstacle);
}

// Piece by piece: what is no file on a disk does not say its size.
template <class Bytes>
std::optional<Bytes> ReadAll(const std::u16string& path) {
    constexpr std::size_t Piece = 64 * 1024;
    ReadableFile file = Open(path);
    if (!file) return std::nullopt;
    Bytes bytes;
    std::size_t size = 0;
    do {
        bytes.resize(size + std::max(Piece, size));
        auto* const rest = reinterpret_cast<std::uint8_t*>(bytes.data() + size);
        size += file.Read({rest, bytes.size() - size});
    } while (size == bytes.size());
    bytes.resize(size);
    return bytes;
}

SkinFile Read(const std::u16string& path) {
    SkinFile file{path.substr(path.find_last_of(Separators) + 1), false, {}};
    if (auto bytes = ReadAll<std::vector<std::uint8_t>>(path)) {
        file.CanBeRead = true;
        file.Bytes = std::move(*bytes);
    }
    return file;
}

// What a name, or one step of a path, stands for: a folder is entered whatever the case of its name.
std::vector<std::u16string> Follow(const std::vector<std::u16string>& folders, const std::u16string& name) {
    const bool isStep = name == u"." || name == u"..";
    std::vector<std::u16string> found;
    for (const std::u16string& folder : folders)
        for (const std::u16string& entry : isStep ? std::vector{name} : EntriesNamed(folder, name))
            found.push_back(folder + u"/" + entry);
    return found;
}

} // namespace

bool FolderSource::IsThere() const { return static_cast<bool>(Open(folder_ + definition_)); }

std::string FolderSource::Name() const { return ToUtf8(folder_ + definition_); }

std::string FolderSource::Definition() const {
    return ReadAll<std::string>(folder_ + definition_).value_or(std::string());
}

// The trailing "." makes a name of the current folder and of roots, too.
std::vector<SkinFile> FolderSource::Find(const std::u16string& name) const {
    std::vector<std::u16string> paths = {folder_ + u"."};
    std::u16string_view rest = name;
    while (!rest.empty() && !paths.empty()) {
        const std::size_t end = std::min(rest.find_first_of(Separators), rest.size());
        if (end > 0) paths = Follow(paths, std::u16string(rest.substr(0, end)));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    std::vector<SkinFile> files;
    for (const std::u16string& path : paths)
        if (!IsFolder(path)) files.push_back(Read(path));
    return files;
}

} // namespace vantik

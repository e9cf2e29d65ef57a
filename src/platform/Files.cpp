#include "platform/Files.h"

#include "platform/mDeclares.h"

namespace vantik {

std::u16string ApplicationFolder() {
    std::wstring path(MAX_PATH, L'\0');
    DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    while (length == path.size()) { // cut short: the path is longer than the buffer
        path.resize(path.size() * 2);
        length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    }
    path.resize(length);
    const auto slash = path.rfind(L'\\');
    return FromWide(slash == std::wstring::npos ? std::wstring_view()
                                                : std::wstring_view(path).substr(0, slash));
}

bool FileExists(const std::u16string& path) noexcept {
    const DWORD attributes = GetFileAttributesW(AsWide(path));
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool FolderExists(const std::u16string& path) noexcept {
    const DWORD attributes = GetFileAttributesW(AsWide(path));
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

} // namespace vantik

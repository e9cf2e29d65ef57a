// Files under UTF-16 paths, by the C library alone: Windows has wide functions, elsewhere paths are UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace vantik {

bool IsFolder(const std::u16string& path) noexcept;
bool FolderOfPathExists(const std::u16string& path) noexcept;

// Unpaired surrogates become the replacement character.
std::string ToUtf8(std::u16string_view text);

} // namespace vantik

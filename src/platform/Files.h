// Questions about the file system.
#pragma once

#include <string>

namespace vantik {

// The folder of the running application, without a trailing backslash.
std::u16string ApplicationFolder();

bool FileExists(const std::u16string& path) noexcept;   // a folder is no file
bool FolderExists(const std::u16string& path) noexcept; // a file is no folder

} // namespace vantik

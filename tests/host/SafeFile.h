// Files that are written whole or not at all.
#pragma once

#include <filesystem>
#include <string>

namespace vantik {

// What was there stays until the new file is complete. HostError when it cannot be written.
void WriteFileSafely(const std::filesystem::path& path, const std::string& bytes);

} // namespace vantik

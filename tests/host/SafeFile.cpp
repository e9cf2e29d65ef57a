#include "host/SafeFile.h"

#include <fstream>
#include <system_error>

#include "host/HostError.h"

namespace vantik {

namespace {

std::string NameOf(const std::filesystem::path& path) { return ToUtf8(path.wstring()); }

// What the system says of the last call.
std::string Reason() {
    return std::error_code(static_cast<int>(GetLastError()), std::system_category()).message();
}

void Write(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) throw HostError("cannot write " + NameOf(path));
}

} // namespace

void WriteFileSafely(const std::filesystem::path& path, const std::string& bytes) {
    std::filesystem::path fresh = path;
    fresh += L".new";
    Write(fresh, bytes);
    if (MoveFileExW(fresh.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING)) return;
    const std::string reason = Reason();
    DeleteFileW(fresh.c_str());
    throw HostError("cannot write " + NameOf(path) + ": " + reason);
}

} // namespace vantik

#include "platform/FileIdentity.h"

#include "platform/mDeclares.h"

namespace vantik {

namespace {

// The coarsest grain of a write time that file systems have is two seconds; and clocks differ a little.
constexpr std::uint64_t Grain = 30'000'000; // of 100 nanoseconds

std::uint64_t Join(DWORD high, DWORD low) noexcept { return std::uint64_t{high} << 32 | low; }
std::uint64_t Join(FILETIME time) noexcept { return Join(time.dwHighDateTime, time.dwLowDateTime); }

bool IsSettled(std::uint64_t written) noexcept {
    FILETIME now = {};
    GetSystemTimeAsFileTime(&now);
    return written + Grain <= Join(now);
}

} // namespace

FileIdentity IdentityOf(const std::u16string& path) noexcept {
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    if (!GetFileAttributesExW(AsWide(path), GetFileExInfoStandard, &data)) return {};
    const auto is = [&](DWORD attribute) { return (data.dwFileAttributes & attribute) != 0; };
    FileIdentity identity;
    identity.IsFile = !is(FILE_ATTRIBUTE_DIRECTORY);
    identity.Size = Join(data.nFileSizeHigh, data.nFileSizeLow);
    identity.Written = Join(data.ftLastWriteTime);
    identity.Created = Join(data.ftCreationTime);
    identity.ShowsChanges = !is(FILE_ATTRIBUTE_REPARSE_POINT) && IsSettled(identity.Written);
    return identity;
}

} // namespace vantik

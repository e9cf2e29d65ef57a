#include "skin/FileStamp.h"

#include "platform/mDeclares.h"

namespace vantik {

namespace {

std::uint64_t Join(DWORD high, DWORD low) noexcept { return std::uint64_t{high} << 32 | low; }

} // namespace

FileStamp StampOf(const std::u16string& path) noexcept {
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    if (!GetFileAttributesExW(AsWide(path), GetFileExInfoStandard, &data)) return {};
    return {Join(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime),
            Join(data.nFileSizeHigh, data.nFileSizeLow)};
}

} // namespace vantik

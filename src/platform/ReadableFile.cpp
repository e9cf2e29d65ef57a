#include "base/ReadableFile.h"

#include <algorithm>

#include "platform/Doubt.h"
#include "platform/mDeclares.h"

namespace vantik {

namespace {

constexpr std::size_t MaxPiece = std::size_t{1} << 30; // the system counts the bytes of a read in 32 bits

ReadableFile::Obstacle ObstacleOf(DWORD error) noexcept {
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_INVALID_NAME:
    case ERROR_FILENAME_EXCED_RANGE: return ReadableFile::Obstacle::NotThere;
    default: return ReadableFile::Obstacle::NoAccess;
    }
}

} // namespace

void ReadableFile::Closer::operator()(void* handle) const noexcept { CloseHandle(handle); }

ReadableFile ReadableFile::Open(const std::u16string& path, Obstacle& obstacle) noexcept {
    const HANDLE handle =
        CreateFileW(AsWide(path), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    ReadableFile file;
    if (handle != INVALID_HANDLE_VALUE) file.handle_.reset(handle);
    obstacle = file ? Obstacle::None : ObstacleOf(GetLastError());
    return file;
}

std::size_t ReadableFile::Read(std::span<std::uint8_t> target) noexcept {
    std::size_t count = 0;
    while (count < target.size()) {
        const auto wanted = static_cast<DWORD>(std::min(target.size() - count, MaxPiece));
        DWORD read = 0;
        if (!ReadFile(handle_.get(), target.data() + count, wanted, &read, nullptr)) {
            TellDoubt();
            break;
        }
        count += read;
        if (read < wanted) break; // asking once more would only say again that this was the end
    }
    return count;
}

std::int64_t ReadableFile::Size() const noexcept {
    LARGE_INTEGER size = {};
    const bool isKnown = GetFileSizeEx(handle_.get(), &size);
    TellDoubtUnless(isKnown);
    return isKnown ? size.QuadPart : 0;
}

} // namespace vantik

#include "skin/SharedFile.h"

#include <algorithm>
#include <memory>
#include <new>
#include <vector>

#include "base/ErrorText.h"
#include "base/Text.h"
#include "platform/FileStore.h"
#include "platform/Files.h"
#include "platform/mDeclares.h"

namespace vantik {

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr int MaxAttempts = 40;
constexpr DWORD PauseBetweenAttempts = 25; // milliseconds

struct HandleCloser {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const noexcept { CloseHandle(handle); }
};
using UniqueHandle = std::unique_ptr<HANDLE, HandleCloser>;

RunTimeErrorNumber NumberOf(DWORD error) noexcept {
    switch (error) {
    case ERROR_FILE_NOT_FOUND: return RunTimeErrorNumber::FileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_NETPATH: return RunTimeErrorNumber::PathNotFound;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION: return RunTimeErrorNumber::PermissionDenied;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL: return RunTimeErrorNumber::DiskFull;
    case ERROR_CRC:
    case ERROR_NOT_READY:
    case ERROR_IO_DEVICE: return RunTimeErrorNumber::DeviceError;
    default: return RunTimeErrorNumber::PathFileAccess;
    }
}

[[noreturn]] void RaiseFor(const std::u16string& path, DWORD error) {
    const RunTimeErrorNumber number = NumberOf(error);
    Raise(number, PathText{path}, u": ", DescriptionOf(number));
}

// Gone when another process is done with its part of the same work, or has closed the file.
bool IsPassing(DWORD error) noexcept {
    return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION ||
           error == ERROR_ALREADY_EXISTS || error == ERROR_FILE_EXISTS;
}

bool IsLink(const std::u16string& path) noexcept {
    const DWORD attributes = GetFileAttributesW(AsWide(path));
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT);
}

// Even a link that comes into the file's place between two looks is not followed. With a null handle GetLastError tells
// why.
UniqueHandle Open(const std::u16string& path, DWORD access, DWORD disposition) noexcept {
    const HANDLE file =
        CreateFileW(AsWide(path), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    disposition, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    return UniqueHandle(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

bool BeginsWith(HANDLE file, Bytes bytes) {
    std::vector<std::uint8_t> begin(bytes.size());
    DWORD read = 0;
    return ReadFile(file, begin.data(), static_cast<DWORD>(begin.size()), &read, nullptr) &&
           read == bytes.size() && std::equal(begin.begin(), begin.end(), bytes.begin());
}

// These and those below answer with the system's error, or none.
DWORD Write(const std::u16string& path, DWORD disposition, Bytes bytes) noexcept {
    const UniqueHandle file = Open(path, GENERIC_WRITE, disposition);
    DWORD written = 0;
    if (!file || !WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr))
        return GetLastError();
    return written == bytes.size() ? ERROR_SUCCESS : ERROR_DISK_FULL;
}

// No other thread of any process has the same.
std::u16string DraftOf(const std::u16string& path) {
    const auto number = [](DWORD id) { return DecimalText(static_cast<std::int32_t>(id)); };
    return path + u"." + number(GetCurrentProcessId()) + u"." + number(GetCurrentThreadId());
}

// Where another process was faster, its file stays.
DWORD WriteNew(const std::u16string& path, Bytes bytes) {
    const std::u16string draft = DraftOf(path);
    DeleteFileW(AsWide(draft)); // of a process of the same number that was ended
    DWORD error = Write(draft, CREATE_NEW, bytes);
    if (!error && !MoveFileW(AsWide(draft), AsWide(path))) error = GetLastError();
    if (error) DeleteFileW(AsWide(draft));
    return error;
}

DWORD TryToWrite(const std::u16string& path, Bytes bytes) {
    if (IsLink(path)) return ERROR_CANT_ACCESS_FILE;
    if (const UniqueHandle file = Open(path, GENERIC_READ, OPEN_EXISTING)) {
        if (BeginsWith(file.get(), bytes)) return ERROR_SUCCESS;
    } else {
        const DWORD error = GetLastError();
        return error == ERROR_FILE_NOT_FOUND ? WriteNew(path, bytes) : error;
    }
    return Write(path, OPEN_EXISTING, bytes);
}

void WriteUntilThere(const std::u16string& path, Bytes bytes) {
    for (int attempt = 1;; ++attempt) {
        const DWORD error = TryToWrite(path, bytes);
        if (!error) return;
        if (!IsPassing(error) || attempt == MaxAttempts) RaiseFor(path, error);
        Sleep(PauseBetweenAttempts);
    }
}

// What a file was found to begin with.
struct Beginning {
    Bytes Text;

    bool Is(Bytes bytes) const noexcept { return Text.data() == bytes.data() && Text.size() == bytes.size(); }
};

} // namespace

// A file that was right and has not changed since is not looked into again.
void WriteShared(const std::u16string& path, Bytes bytes) {
    const FileIdentity identity = IdentityOf(path);
    const SharedContent known = FindContent(path, identity, FileContent::Beginning);
    if (known && std::static_pointer_cast<const Beginning>(known)->Is(bytes)) return;
    WriteUntilThere(path, bytes);
    try {
        KeepContent(path, identity, FileContent::Beginning, std::make_shared<Beginning>(Beginning{bytes}),
                    sizeof(Beginning));
    } catch (const std::bad_alloc&) { // it will be looked into
    }
}

void NeedFolder(const std::u16string& path) {
    if (IsLink(path)) RaiseFor(path, ERROR_CANT_ACCESS_FILE);
    if (FolderExists(path) || CreateDirectoryW(AsWide(path), nullptr)) return;
    const DWORD error = GetLastError();
    if (!FolderExists(path)) RaiseFor(path, error); // another process was not faster
}

} // namespace vantik

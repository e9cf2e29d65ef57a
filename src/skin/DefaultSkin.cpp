#include "skin/DefaultSkin.h"

#include <memory>

#include "base/ErrorText.h"
#include "platform/Files.h"
#include "platform/Module.h"
#include "platform/mDeclares.h"

namespace vantik {

namespace {

struct BuiltInFile {
    const char16_t* ResourceName;
    const char16_t* Path; // behind the host folder
};

// In the order in which they are written.
constexpr BuiltInFile BuiltInFiles[] = {
    {u"SUN", u"\\Temp\\sun.png"},         {u"SKINFILE", u"\\Temp\\skin.ini"},
    {u"SKINBMP", u"\\Temp\\skin2.bmp"},   {u"MENUBAR", u"\\Temp\\menubar.png"},
    {u"BAR0", u"\\Temp\\bar0.png"},       {u"BAR1", u"\\Temp\\bar1.png"},
    {u"DELETE1", u"\\Temp\\delete1.png"}, {u"HANDNO", u"\\Temp\\handno.png"},
};

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

[[noreturn]] void RaiseFor(const std::u16string& path, RunTimeErrorNumber number) {
    Raise(number, PathText{path}, u": ", DescriptionOf(number));
}

UniqueHandle OpenToWrite(const std::u16string& path) {
    const HANDLE file = CreateFileW(AsWide(path), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) RaiseFor(path, NumberOf(GetLastError()));
    return UniqueHandle(file);
}

} // namespace

void SaveResourceToFile(const std::u16string& resourceName, const std::u16string& resourceType,
                        const std::u16string& filePath) {
    const auto bytes = ResourceBytes(AsWide(resourceName), AsWide(resourceType));
    if (bytes.empty()) // the module was built without its resources
        Raise(RunTimeErrorNumber::InternalError, u"There is no resource ", Quoted{resourceName});
    const UniqueHandle file = OpenToWrite(filePath);
    const auto size = static_cast<DWORD>(bytes.size());
    DWORD written = 0;
    if (!WriteFile(file.get(), bytes.data(), size, &written, nullptr))
        RaiseFor(filePath, NumberOf(GetLastError()));
    if (written != size) RaiseFor(filePath, RunTimeErrorNumber::DiskFull);
}

void ExtractDefaultSkin(const std::u16string& hostFolder) {
    const std::u16string folder = hostFolder + u"\\Temp";
    if (!FolderExists(folder) && !CreateDirectoryW(AsWide(folder), nullptr))
        RaiseFor(folder, NumberOf(GetLastError()));
    for (const BuiltInFile& file : BuiltInFiles)
        SaveResourceToFile(file.ResourceName, u"CUSTOM", hostFolder + file.Path);
}

} // namespace vantik

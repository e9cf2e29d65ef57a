#include "skin/DefaultSkin.h"

#include <span>
#include <string_view>

#include "base/ErrorText.h"
#include "platform/Files.h"
#include "platform/Module.h"
#include "skin/SharedFile.h"

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

void Write(const std::u16string& hostFolder, const BuiltInFile& file) {
    SaveResourceToFile(file.ResourceName, u"CUSTOM", hostFolder + file.Path);
}

bool IsMissing(const std::u16string& path) noexcept { return !FileExists(path) && !FolderExists(path); }

bool IsNewDefinition(const std::u16string& hostFolder, const BuiltInFile& file) {
    return file.ResourceName == std::u16string_view(u"SKINFILE") && IsMissing(hostFolder + file.Path);
}

void WriteAll(const std::u16string& hostFolder, std::span<const BuiltInFile> files) {
    for (const BuiltInFile& file : files) Write(hostFolder, file);
}

// Also when the others cannot be written: it stands before them in the order.
void WriteBehind(const std::u16string& hostFolder, std::span<const BuiltInFile> others,
                 const BuiltInFile& file) {
    try {
        WriteAll(hostFolder, others);
    } catch (const RunTimeError&) {
        Write(hostFolder, file);
        throw;
    }
    Write(hostFolder, file);
}

// In their order, but for a definition that was missing: another process that finds it reads the files that it names.
void WriteInOrder(const std::u16string& hostFolder, std::span<const BuiltInFile> files) {
    for (; !files.empty(); files = files.subspan(1)) {
        const BuiltInFile& first = files.front();
        if (IsNewDefinition(hostFolder, first)) return WriteBehind(hostFolder, files.subspan(1), first);
        Write(hostFolder, first);
    }
}

} // namespace

void SaveResourceToFile(const std::u16string& resourceName, const std::u16string& resourceType,
                        const std::u16string& filePath) {
    const auto bytes = ResourceBytes(AsWide(resourceName), AsWide(resourceType));
    if (bytes.empty()) // the module was built without its resources
        Raise(RunTimeErrorNumber::InternalError, u"There is no resource ", Quoted{resourceName});
    WriteShared(filePath, bytes);
}

void ExtractDefaultSkin(const std::u16string& hostFolder) {
    NeedFolder(hostFolder + u"\\Temp");
    WriteInOrder(hostFolder, BuiltInFiles);
}

} // namespace vantik

#include "NewSkinFiles.h"

#include <string>
#include <utility>
#include <vector>

#include "host/HostError.h"
#include "host/SafeFile.h"
#include "platform/Module.h"
#include "tools/skinview/model/NewSkin.h"

namespace vantik {

namespace {

using NewFile = std::pair<std::filesystem::path, std::string>;

std::string Button(const wchar_t* resource) {
    const auto bytes = ResourceBytes(resource, L"CUSTOM");
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::vector<NewFile> FilesOf(const std::filesystem::path& definition) {
    const auto folder = definition.parent_path();
    return {{folder / NewBitmapName, BitmapFileOf(NewBitmap())},
            {folder / L"close.png", Button(L"DELETE1")},
            {folder / L"back.png", Button(L"BAR0")},
            {folder / L"forth.png", Button(L"BAR1")},
            {folder / L"menu.png", Button(L"MENUBAR")},
            {folder / L"SETTINGS.TXT", NewSettings(true)},
            {folder / L"SETTINGS-SIDES.TXT", NewSettings(false)},
            {definition, NewDefinition()}}; // last: whoever finds it finds the others
}

} // namespace

void WriteNewSkin(const std::filesystem::path& definition) {
    const auto files = FilesOf(std::filesystem::absolute(definition));
    std::error_code missing;
    for (const auto& [path, bytes] : files)
        if (std::filesystem::exists(path, missing))
            throw HostError(ToUtf8(path.wstring()) +
                            " is there already; a new skin wants a folder of its own");
    for (const auto& [path, bytes] : files) WriteFileSafely(path, bytes);
}

} // namespace vantik

#include "skin/SkinLocation.h"

#include "platform/Files.h"
#include "skin/SkinFolder.h"

namespace vantik {

bool SkinFileExists(UserControl& host, const ControlState& state, const std::u16string& name) {
    return FileExists(SkinFolder(host.HostFolder(), state.Properties.SkinPath).PathOf(name));
}

bool SkinFolderExists(UserControl& host, const std::u16string& folder) {
    return FolderExists(SkinFolder(host.HostFolder(), folder).Path());
}

} // namespace vantik

// The skins that lie beside the program.
#pragma once

#include <string>
#include <vector>

#include "host/SkinSettings.h"

namespace vantik {

// A skin for bars that lie, on the top or the bottom, or for bars that stand, on the left or the right.
struct SkinVariant {
    std::wstring File; // the control's SkinFile
    std::vector<SkinSetting> Settings;
};

struct SkinChoice {
    std::wstring Name;
    std::wstring Folder;             // relative to the program's folder, as the control's SkinPath
    std::vector<std::wstring> Icons; // some that it has
    SkinVariant Lying, Standing;
};

// The built-in skin, which the control writes out when it needs it, and every folder under "Skins". HostError for a skin
// whose settings cannot be read.
std::vector<SkinChoice> FindSkins();

} // namespace vantik

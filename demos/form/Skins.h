// The skins that lie beside the program.
#pragma once

#include <string>
#include <vector>

namespace vantik {

struct SkinChoice {
    std::wstring Name;
    std::wstring Folder; // relative to the program's folder, as the control's SkinPath
};

// The built-in skin, which the control writes out when it needs it, and every folder under "Skins".
std::vector<SkinChoice> FindSkins();

} // namespace vantik

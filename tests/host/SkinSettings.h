// The property values that go with a skin: its SETTINGS.TXT.
#pragma once

#include <string>
#include <vector>

#include "host/ControlModule.h"
#include "host/Variant.h"

namespace vantik {

struct SkinSetting {
    std::wstring Property;
    std::wstring Value;
};

// The lines "Property = Value" in their order; empty ones and those that begin with "//" say nothing. HostError for a
// file that is not there, and for a line of another kind.
std::vector<SkinSetting> ReadSkinSettings(const std::wstring& path);

// A whole number, a colour as #RRGGBB or the name of a constant; HostError for text that is none of them.
Variant NumberFromText(const std::wstring& text, const std::vector<EnumerationMember>& constants);

// A number as above, or True or False.
Variant SettingFromText(const std::wstring& text, const std::vector<EnumerationMember>& constants);

} // namespace vantik

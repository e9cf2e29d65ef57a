// The properties of the form that its controls take over.
#pragma once

#include <optional>

#include "host/HostSwitches.h"
#include "host/Variant.h"

namespace vantik {

struct AmbientValues {
    OLE_COLOR BackColor = 0x80000000 | COLOR_BTNFACE;
    OLE_COLOR ForeColor = 0x80000000 | COLOR_BTNTEXT;
    std::wstring FontName = L"Tahoma";
    double FontSize = 8.25;
    bool UIDead = false;
};

// Empty for what the form does not have.
std::optional<Variant> AmbientProperty(DISPID id, const AmbientValues& values, const HostSwitches& switches,
                                       const std::wstring& controlName);

} // namespace vantik

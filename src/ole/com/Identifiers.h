// The interfaces and identifiers of the type library, and what else names the control to the system.
//
// The library's types live in the global namespace: its enumerations and the class carry the names that the engine uses
// inside namespace vantik.
#pragma once

#include "platform/mDeclares.h"

#include <VantikFrameTabProject.h>

#include "model/Properties.h"

namespace vantik {

inline constexpr wchar_t ProgId[] = L"VantikFrameTabProject.VantikFrameTab";
inline constexpr wchar_t ControlTitle[] = L"Vantik Frame Tab control";

inline constexpr DWORD MiscStatus = OLEMISC_SIMPLEFRAME | OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_INSIDEOUT |
                                    OLEMISC_SETCLIENTSITEFIRST | OLEMISC_RECOMPOSEONRESIZE |
                                    OLEMISC_CANTLINKINSIDE;

inline constexpr WORD ToolboxBitmapId = 101;

// The member of the dual interface that shows the property. The tab operations stand between the first two properties
// and the others.
constexpr DISPID DispIdOf(Property property) noexcept {
    const auto row = static_cast<DISPID>(property);
    return property <= Property::ActiveTab ? row + 1 : row + 9;
}
static_assert(DispIdOf(Property::ActiveTab) == 2 && DispIdOf(Property::Picture) == 11);

} // namespace vantik

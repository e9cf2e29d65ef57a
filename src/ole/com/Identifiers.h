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

// The property pages, which are classes by themselves.
inline constexpr CLSID CLSID_GeneralPage = {
    0x2A268946, 0x78E0, 0x4DFB, {0xBF, 0x3D, 0xC9, 0xDB, 0x8C, 0x26, 0xF5, 0x5B}};
inline constexpr CLSID CLSID_SkinPage = {
    0x8B514BAB, 0x4522, 0x4613, {0x9D, 0xD6, 0x5C, 0x73, 0x61, 0x47, 0xA3, 0x3D}};

inline constexpr WORD ToolboxBitmapId = 101;

// The member of the dual interface that shows the property. The tab operations stand between the first two properties
// and the others.
constexpr DISPID DispIdOf(Property property) noexcept {
    const auto row = static_cast<DISPID>(property);
    return property <= Property::ActiveTab ? row + 1 : row + 9;
}
static_assert(DispIdOf(Property::ActiveTab) == 2 && DispIdOf(Property::Picture) == 11);

} // namespace vantik

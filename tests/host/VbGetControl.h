// The interface by which some hosts list the controls of a form. No header of the platform declares it.
#pragma once

#include "platform/mDeclares.h"

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor" // no object is deleted through an interface
struct IVBGetControl : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE EnumControls(DWORD kinds, DWORD which, IEnumUnknown** controls) = 0;
};
#pragma GCC diagnostic pop
__CRT_UUID_DECL(IVBGetControl, 0x40A050A0, 0x3C31, 0x101B, 0xA8, 0x2E, 0x08, 0x00, 0x2B, 0x2B, 0x23, 0x37)

namespace vantik {

// Which controls EnumControls lists, seen from the site that is asked; the low bits of the argument.
enum class VbControls : DWORD { Sibling = 1, Container = 2, Contained = 3, All = 4 };
inline constexpr DWORD VbControlsMask = 7;

} // namespace vantik

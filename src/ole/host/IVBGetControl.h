// How some hosts list the controls that stand on another one. The platform's headers do not have it.
#pragma once

#include "platform/mDeclares.h"

MIDL_INTERFACE("40A050A0-3C31-101B-A82E-08002B2B2337")
IVBGetControl : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE EnumControls(DWORD oleContF, DWORD which,
                                                   IEnumUnknown * *enumerator) = 0;
};
__CRT_UUID_DECL(IVBGetControl, 0x40A050A0, 0x3C31, 0x101B, 0xA8, 0x2E, 0x08, 0x00, 0x2B, 0x2B, 0x23, 0x37)

namespace vantik {

// The controls that stand on the caller.
inline constexpr DWORD GC_WCH_CONTAINED = 3;

} // namespace vantik

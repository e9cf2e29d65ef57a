#pragma once

#include "platform/mDeclares.h"

namespace vantik::test {

// How many GDI objects the process has. Where the system does not count them, the handle values are walked.
inline int GdiObjectCount() {
    if (const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS))
        return static_cast<int>(counted);
    int count = 0;
    for (UINT_PTR value = 1; value <= 0xFFFF; ++value)
        if (GetObjectType(reinterpret_cast<HGDIOBJ>(value))) ++count;
    return count;
}

} // namespace vantik::test

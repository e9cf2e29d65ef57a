// The system's part of accessibility, oleacc.dll.
#pragma once

#include <oleacc.h>

#include "ole/accessible/SystemLibrary.h"
#include "platform/ComPtr.h"

namespace vantik {

class SystemAccessibility {
public:
    SystemAccessibility() noexcept;

    // The answer to WM_GETOBJECT; 0 where the system has none.
    LRESULT Answer(WPARAM wParam, IAccessible& object) const noexcept;

    // What the system says of a window; null where it has nothing to say.
    ComPtr<IAccessible> Describe(HWND window) const noexcept;

private:
    SystemLibrary library_{L"oleacc.dll"};
    decltype(&LresultFromObject) lresultFromObject_ = nullptr;
    decltype(&AccessibleObjectFromWindow) accessibleObjectFromWindow_ = nullptr;
};

} // namespace vantik

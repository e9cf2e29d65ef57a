// The system's part of accessibility, oleacc.dll: loaded when somebody asks for the first time, because most programs run
// without anybody who does.
#pragma once

#include <oleacc.h>

#include "platform/ComPtr.h"

namespace vantik {

class SystemAccessibility {
public:
    SystemAccessibility() noexcept;
    ~SystemAccessibility();
    SystemAccessibility(const SystemAccessibility&) = delete;
    SystemAccessibility& operator=(const SystemAccessibility&) = delete;

    // The answer to WM_GETOBJECT; 0 where the system has none.
    LRESULT Answer(WPARAM wParam, IAccessible& object) const noexcept;

    // What the system says of a window; null where it has nothing to say.
    ComPtr<IAccessible> Describe(HWND window) const noexcept;

private:
    HMODULE library_;
    decltype(&LresultFromObject) lresultFromObject_ = nullptr;
    decltype(&AccessibleObjectFromWindow) accessibleObjectFromWindow_ = nullptr;
};

} // namespace vantik

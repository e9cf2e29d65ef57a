#include "ole/accessible/SystemAccessibility.h"

namespace vantik {

SystemAccessibility::SystemAccessibility() noexcept {
    library_.Find("LresultFromObject", lresultFromObject_);
    library_.Find("AccessibleObjectFromWindow", accessibleObjectFromWindow_);
}

LRESULT SystemAccessibility::Answer(WPARAM wParam, IAccessible& object) const noexcept {
    return lresultFromObject_ ? lresultFromObject_(IID_IAccessible, wParam, &object) : 0;
}

ComPtr<IAccessible> SystemAccessibility::Describe(HWND window) const noexcept {
    ComPtr<IAccessible> found;
    constexpr auto object = static_cast<DWORD>(OBJID_WINDOW);
    if (!accessibleObjectFromWindow_ ||
        FAILED(accessibleObjectFromWindow_(window, object, IID_IAccessible, found.PutVoid())))
        return nullptr;
    return found;
}

} // namespace vantik

#include "ole/accessible/SystemAccessibility.h"

#include <string_view>

namespace vantik {

namespace {

// By its full path: a file of that name beside the program or in its folder is not meant.
HMODULE LoadOleacc() noexcept {
    constexpr std::wstring_view name = L"\\oleacc.dll";
    wchar_t path[MAX_PATH + name.size() + 1] = {};
    const UINT length = GetSystemDirectoryW(path, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) return nullptr;
    name.copy(path + length, name.size());
    return LoadLibraryW(path);
}

template <class Function>
void Find(HMODULE library, const char* name, Function& function) noexcept {
    // No function that is called as another one: the name says which it is.
    const auto address = reinterpret_cast<void*>(GetProcAddress(library, name));
    function = reinterpret_cast<Function>(address);
}

} // namespace

SystemAccessibility::SystemAccessibility() noexcept : library_(LoadOleacc()) {
    if (!library_) return;
    Find(library_, "LresultFromObject", lresultFromObject_);
    Find(library_, "AccessibleObjectFromWindow", accessibleObjectFromWindow_);
}

SystemAccessibility::~SystemAccessibility() {
    if (library_) FreeLibrary(library_);
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

#include "AtlHost.h"

namespace {

template <class Function>
Function FromAtl(const char* name) {
    const HMODULE atl = LoadLibraryW(L"atl.dll");
    const auto found = atl ? GetProcAddress(atl, name) : nullptr;
    if (!found) throw ComError{HRESULT_FROM_WIN32(GetLastError())};
    return reinterpret_cast<Function>(found);
}

} // namespace

void InitAtl() { FromAtl<BOOL(WINAPI*)()>("AtlAxWinInit")(); }

Com<IUnknown> ControlIn(HWND window) {
    IUnknown* control = nullptr;
    Check(FromAtl<HRESULT(WINAPI*)(HWND, IUnknown**)>("AtlAxGetControl")(window, &control));
    return Com<IUnknown>(control);
}

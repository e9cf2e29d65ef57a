// The system's small host in a window, as class libraries and dialogs use it.
#pragma once

#include <doctest/doctest.h>

#include "platform/ComPtr.h"

namespace vantik {

class HostingLibrary {
public:
    HostingLibrary() { REQUIRE(module_); }
    ~HostingLibrary() { FreeLibrary(module_); }
    HostingLibrary(const HostingLibrary&) = delete;
    HostingLibrary& operator=(const HostingLibrary&) = delete;

    // The host lives as long as its window.
    HRESULT Attach(IUnknown* control, HWND window) const {
        using Function = HRESULT(WINAPI*)(IUnknown*, HWND, IUnknown**);
        const auto attach = reinterpret_cast<Function>(GetProcAddress(module_, "AtlAxAttachControl"));
        ComPtr<IUnknown> host;
        return attach(control, window, host.Put());
    }

private:
    HMODULE module_ = LoadLibraryW(L"atl.dll");
};

} // namespace vantik

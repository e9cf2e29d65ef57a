// A library of the system's that is loaded when it is first needed, because most programs run without anybody who needs it.
#pragma once

#include <string_view>

#include "platform/mDeclares.h"

namespace vantik {

class SystemLibrary {
public:
    explicit SystemLibrary(std::wstring_view file) noexcept; // such as "oleacc.dll"
    ~SystemLibrary();
    SystemLibrary(const SystemLibrary&) = delete;
    SystemLibrary& operator=(const SystemLibrary&) = delete;

    // Null where the library or its function is missing.
    template <class Function>
    void Find(const char* name, Function& function) const noexcept {
        // No function that is called as another one: the name says which it is.
        function = reinterpret_cast<Function>(Address(name));
    }

    // It stays loaded for good: something of it lives on.
    void Keep() noexcept { library_ = nullptr; }

private:
    void* Address(const char* name) const noexcept;

    HMODULE library_;
};

} // namespace vantik

// A key of the registry, open for writing.
#pragma once

#include <string>

#include "platform/mDeclares.h"

namespace vantik {

class RegistryKey {
public:
    // Opened or made; raises what the registry answers.
    RegistryKey(HKEY parent, const std::wstring& path);
    ~RegistryKey() { RegCloseKey(key_); }
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;

    // The value without a name, and a named one.
    void Set(const std::wstring& value) const { Set(nullptr, value); }
    void Set(const wchar_t* name, const std::wstring& value) const;

    // A key below this one, made and given its unnamed value.
    void Add(const std::wstring& path, const std::wstring& value = {}) const {
        RegistryKey(key_, path).Set(value);
    }

    // With all below it; no error where there is none.
    static void Delete(HKEY parent, const std::wstring& path);

    // View: which registry of a system with two of them.
    static bool Exists(HKEY parent, const std::wstring& path, REGSAM view = 0) noexcept;

private:
    HKEY key_ = nullptr;
};

} // namespace vantik

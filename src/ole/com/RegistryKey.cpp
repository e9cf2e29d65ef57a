#include "ole/com/RegistryKey.h"

#include "ole/com/ErrorInfo.h"

namespace vantik {

namespace {

void CheckRegistry(LSTATUS status) { Check(HRESULT_FROM_WIN32(static_cast<DWORD>(status))); }

void CheckGone(LSTATUS status) {
    if (status != ERROR_FILE_NOT_FOUND) CheckRegistry(status);
}

} // namespace

RegistryKey::RegistryKey(HKEY parent, const std::wstring& path) {
    CheckRegistry(RegCreateKeyExW(parent, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key_, nullptr));
}

void RegistryKey::Set(const wchar_t* name, const std::wstring& value) const {
    const auto size = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    CheckRegistry(RegSetValueExW(key_, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()), size));
}

void RegistryKey::Delete(HKEY parent, const std::wstring& path) {
    CheckGone(RegDeleteTreeW(parent, path.c_str()));
    CheckGone(RegDeleteKeyW(parent, path.c_str())); // some systems leave the key itself
}

bool RegistryKey::Exists(HKEY parent, const std::wstring& path, REGSAM view) noexcept {
    HKEY key = nullptr;
    if (RegOpenKeyExW(parent, path.c_str(), 0, KEY_QUERY_VALUE | view, &key) != ERROR_SUCCESS) return false;
    RegCloseKey(key);
    return true;
}

} // namespace vantik

#include "platform/Module.h"

namespace vantik {

HINSTANCE ThisModule() noexcept {
    HMODULE module = nullptr;
    constexpr DWORD flags =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    GetModuleHandleExW(flags, reinterpret_cast<LPCWSTR>(&ThisModule), &module);
    return module;
}

std::span<const BYTE> ResourceBytes(const wchar_t* name, const wchar_t* type) noexcept {
    const HINSTANCE module = ThisModule();
    const HRSRC found = FindResourceW(module, name, type);
    const HGLOBAL loaded = found ? LoadResource(module, found) : nullptr;
    const auto* bytes = loaded ? static_cast<const BYTE*>(LockResource(loaded)) : nullptr;
    if (!bytes) return {};
    return {bytes, SizeofResource(module, found)};
}

} // namespace vantik

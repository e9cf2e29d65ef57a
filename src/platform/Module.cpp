#include "platform/Module.h"

// Placed by the linker at the address where the module is loaded.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace vantik {

HINSTANCE ThisModule() noexcept { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

void KeepThisModuleLoaded() noexcept {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                       reinterpret_cast<LPCWSTR>(&__ImageBase), &module);
}

std::span<const BYTE> ResourceBytes(const wchar_t* name, const wchar_t* type) noexcept {
    const HINSTANCE module = ThisModule();
    const HRSRC found = FindResourceW(module, name, type);
    const HGLOBAL loaded = found ? LoadResource(module, found) : nullptr;
    const auto* bytes = loaded ? static_cast<const BYTE*>(LockResource(loaded)) : nullptr;
    if (!bytes) return {};
    return {bytes, SizeofResource(module, found)};
}

std::u16string ResourceText(UINT number) {
    wchar_t text[256] = {};
    const int length = LoadStringW(ThisModule(), number, text, static_cast<int>(std::size(text)));
    return FromWide({text, static_cast<std::size_t>(length)});
}

} // namespace vantik

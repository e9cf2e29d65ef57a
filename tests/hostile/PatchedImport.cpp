#include "hostile/PatchedImport.h"

#include <cstring>
#include <string>
#include <utility>

#include "host/HostError.h"

namespace vantik {

namespace {

template <class Part>
const Part* At(HMODULE module, std::size_t offset) {
    return reinterpret_cast<const Part*>(reinterpret_cast<const std::byte*>(module) + offset);
}

std::size_t ImportsOf(HMODULE module) {
    const auto* headers =
        At<IMAGE_NT_HEADERS>(module, static_cast<std::size_t>(At<IMAGE_DOS_HEADER>(module, 0)->e_lfanew));
    return headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
}

bool HasName(HMODULE module, const IMAGE_THUNK_DATA& import, const char* name) {
    if (IMAGE_SNAP_BY_ORDINAL(import.u1.Ordinal)) return false;
    const auto* hint = At<std::byte>(module, import.u1.AddressOfData);
    return std::strcmp(reinterpret_cast<const char*>(hint + sizeof(WORD)), name) == 0;
}

const void** FindImport(HMODULE module, const char* name) {
    for (auto* library = At<IMAGE_IMPORT_DESCRIPTOR>(module, ImportsOf(module)); library->FirstThunk;
         ++library) {
        const auto* import = At<IMAGE_THUNK_DATA>(module, library->OriginalFirstThunk);
        for (std::size_t i = 0; import[i].u1.Ordinal; ++i) {
            if (!HasName(module, import[i], name)) continue;
            const auto* thunk = At<IMAGE_THUNK_DATA>(module, library->FirstThunk) + i;
            return reinterpret_cast<const void**>(const_cast<IMAGE_THUNK_DATA*>(thunk));
        }
    }
    throw HostError(std::string("the module does not import ") + name);
}

const void* Exchange(const void** place, const void* function) {
    DWORD protection = 0;
    VirtualProtect(place, sizeof *place, PAGE_READWRITE, &protection);
    const void* const before = std::exchange(*place, function);
    VirtualProtect(place, sizeof *place, protection, &protection);
    return before;
}

} // namespace

PatchedImport::PatchedImport(HMODULE module, const char* name, const void* replacement)
    : place_(FindImport(module, name)), original_(Exchange(place_, replacement)) {}

PatchedImport::~PatchedImport() { Exchange(place_, original_); }

} // namespace vantik

#include "hostile/PatchedImport.h"

#include <cstring>
#include <utility>

#include "host/HostError.h"

namespace vantik {

namespace {

template <class Part>
const Part* At(HMODULE module, std::size_t offset) {
    return reinterpret_cast<const Part*>(reinterpret_cast<const std::byte*>(module) + offset);
}

const IMAGE_IMPORT_DESCRIPTOR* LibrariesOf(HMODULE module) {
    const auto* headers =
        At<IMAGE_NT_HEADERS>(module, static_cast<std::size_t>(At<IMAGE_DOS_HEADER>(module, 0)->e_lfanew));
    return At<IMAGE_IMPORT_DESCRIPTOR>(
        module, headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress);
}

const char* NameOf(HMODULE module, const IMAGE_THUNK_DATA& import) {
    if (IMAGE_SNAP_BY_ORDINAL(import.u1.Ordinal)) return "";
    return reinterpret_cast<const char*>(At<std::byte>(module, import.u1.AddressOfData) + sizeof(WORD));
}

// Calls the visitor with the name of each import and the place of its address, until it has enough.
template <class Visitor>
void VisitImports(HMODULE module, Visitor visit) {
    for (auto* library = LibrariesOf(module); library->FirstThunk; ++library) {
        const auto* import = At<IMAGE_THUNK_DATA>(module, library->OriginalFirstThunk);
        for (std::size_t i = 0; import[i].u1.Ordinal; ++i) {
            const auto* thunk = At<IMAGE_THUNK_DATA>(module, library->FirstThunk) + i;
            if (!visit(NameOf(module, import[i]),
                       reinterpret_cast<const void**>(const_cast<IMAGE_THUNK_DATA*>(thunk))))
                return;
        }
    }
}

const void** FindImport(HMODULE module, const char* name) {
    const void** found = nullptr;
    VisitImports(module, [&](const char* other, const void** place) {
        if (std::strcmp(other, name) == 0) found = place;
        return !found;
    });
    if (!found) throw HostError(std::string("the module does not import ") + name);
    return found;
}

const void* Exchange(const void** place, const void* function) {
    DWORD protection = 0;
    VirtualProtect(place, sizeof *place, PAGE_READWRITE, &protection);
    const void* const before = std::exchange(*place, function);
    VirtualProtect(place, sizeof *place, protection, &protection);
    return before;
}

} // namespace

std::vector<std::string> ImportsOf(HMODULE module) {
    std::vector<std::string> names;
    VisitImports(module, [&](const char* name, const void**) {
        names.emplace_back(name);
        return true;
    });
    return names;
}

PatchedImport::PatchedImport(HMODULE module, const char* name, const void* replacement)
    : place_(FindImport(module, name)), original_(Exchange(place_, replacement)) {}

PatchedImport::~PatchedImport() { Exchange(place_, original_); }

} // namespace vantik

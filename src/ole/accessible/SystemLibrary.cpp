#include "ole/accessible/SystemLibrary.h"

namespace vantik {

namespace {

// By its full path: a file of that name beside the program or in its folder is not meant.
HMODULE Load(std::wstring_view file) noexcept {
    constexpr std::size_t room = 32;
    wchar_t path[MAX_PATH + room] = {};
    const UINT length = GetSystemDirectoryW(path, MAX_PATH);
    if (length == 0 || length >= MAX_PATH || file.size() + 2 > room) return nullptr;
    path[length] = L'\\';
    file.copy(path + length + 1, file.size());
    return LoadLibraryW(path);
}

} // namespace

SystemLibrary::SystemLibrary(std::wstring_view file) noexcept : library_(Load(file)) {}

SystemLibrary::~SystemLibrary() {
    if (library_) FreeLibrary(library_);
}

void* SystemLibrary::Address(const char* name) const noexcept {
    return library_ ? reinterpret_cast<void*>(GetProcAddress(library_, name)) : nullptr;
}

} // namespace vantik

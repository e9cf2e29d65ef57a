#include "hostile/ModuleMemory.h"

#include <atomic>
#include <climits>
#include <cstdlib>

namespace vantik {

namespace {

// Which requests fail: of those to come, the ones from the first on, and how many.
std::atomic<long> untilFirst = 0;
std::atomic<long> toFail = 0;
std::atomic<bool> hasFailed = false;

bool IsToFail() noexcept {
    if (toFail == 0 || untilFirst-- > 0) return false;
    --toFail;
    hasFailed = true;
    return true;
}

void Fail(long first, long count) noexcept {
    toFail = 0;
    hasFailed = false;
    untilFirst = first;
    toFail = count;
}

// In place of the functions of the same names.
void* Malloc(std::size_t size) noexcept { return IsToFail() ? nullptr : std::malloc(size); }
void* Calloc(std::size_t count, std::size_t size) noexcept {
    return IsToFail() ? nullptr : std::calloc(count, size);
}
void* Realloc(void* block, std::size_t size) noexcept {
    return IsToFail() ? nullptr : std::realloc(block, size);
}
void* WINAPI TaskMemAlloc(SIZE_T size) noexcept { return IsToFail() ? nullptr : CoTaskMemAlloc(size); }
HGLOBAL WINAPI AllocateGlobal(UINT flags, SIZE_T size) noexcept {
    return IsToFail() ? nullptr : GlobalAlloc(flags, size);
}
BSTR WINAPI AllocString(const OLECHAR* text) noexcept { return IsToFail() ? nullptr : SysAllocString(text); }
BSTR WINAPI AllocStringLen(const OLECHAR* text, UINT length) noexcept {
    return IsToFail() ? nullptr : SysAllocStringLen(text, length);
}
INT WINAPI ReAllocStringLen(BSTR* target, const OLECHAR* text, UINT length) noexcept {
    return IsToFail() ? FALSE : SysReAllocStringLen(target, text, length);
}

} // namespace

ModuleMemory::ModuleMemory(HMODULE module) {
    const auto patch = [&](const char* name, auto* replacement) {
        imports_.emplace_back(module, name, reinterpret_cast<const void*>(replacement));
    };
    patch("malloc", Malloc);
    patch("calloc", Calloc);
    patch("realloc", Realloc);
    patch("CoTaskMemAlloc", TaskMemAlloc);
    patch("GlobalAlloc", AllocateGlobal);
    patch("SysAllocString", AllocString);
    patch("SysAllocStringLen", AllocStringLen);
    patch("SysReAllocStringLen", ReAllocStringLen);
}

void ModuleMemory::FailAt(long number) noexcept { Fail(number, 1); }
void ModuleMemory::FailAll() noexcept { Fail(0, LONG_MAX); }
void ModuleMemory::FailNone() noexcept { Fail(0, 0); }
bool ModuleMemory::HasFailed() const noexcept { return hasFailed; }

} // namespace vantik

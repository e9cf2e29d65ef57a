#include "ole/com/Module.h"

#include <atomic>

#include "platform/Module.h"

namespace vantik {

namespace {

// Objects of several apartments count here.
std::atomic<long> locks = 0;

} // namespace

std::u16string ModulePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(ThisModule(), path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) return FromWide({path.data(), length});
        path.resize(path.size() * 2);
    }
}

void LockModule() noexcept { ++locks; }
void UnlockModule() noexcept { --locks; }
bool ModuleIsLocked() noexcept { return locks != 0; }

} // namespace vantik

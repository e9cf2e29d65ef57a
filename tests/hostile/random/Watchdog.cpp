#include "hostile/random/Watchdog.h"

#include <cstdlib>

#include "hostile/random/Journal.h"

namespace vantik {

namespace {

// One action leads to a dozen others at most: even a machine with much else to do has done them by then.
constexpr DWORD Patience = 60'000;

} // namespace

Watchdog::Watchdog(const Journal& journal)
    : journal_(journal), thread_(CreateThread(nullptr, 0, Watch, this, 0, nullptr)) {}

Watchdog::~Watchdog() {
    SetEvent(ended_);
    WaitForSingleObject(thread_, INFINITE);
    CloseHandle(thread_);
    CloseHandle(ended_);
}

DWORD WINAPI Watchdog::Watch(void* self) {
    static_cast<Watchdog*>(self)->Watch();
    return 0;
}

void Watchdog::Watch() noexcept {
    for (long before = -1; before != meals_;) {
        before = meals_;
        if (WaitForSingleObject(ended_, Patience) == WAIT_OBJECT_0) return;
    }
    journal_.PrintEnd("hangs");
    std::_Exit(4);
}

} // namespace vantik

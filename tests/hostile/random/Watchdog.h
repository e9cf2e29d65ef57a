// Ends a process that hangs, with a report.
#pragma once

#include <atomic>

#include "platform/mDeclares.h"

namespace vantik {

class Journal;

class Watchdog {
public:
    explicit Watchdog(const Journal& journal);
    ~Watchdog();
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

    void Fed() noexcept { ++meals_; }

private:
    static DWORD WINAPI Watch(void* self);
    void Watch() noexcept;

    const Journal& journal_;
    std::atomic<long> meals_ = 0;
    HANDLE ended_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HANDLE thread_; // begins when the rest is there
};

} // namespace vantik

// Holds a lock for as long as it lives.
#pragma once

#include "platform/mDeclares.h"

namespace vantik {

class [[nodiscard]] Lock {
public:
    explicit Lock(SRWLOCK& lock) noexcept : lock_(lock) { AcquireSRWLockExclusive(&lock_); }
    ~Lock() { ReleaseSRWLockExclusive(&lock_); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

private:
    SRWLOCK& lock_;
};

} // namespace vantik

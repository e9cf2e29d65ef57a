// The seconds that the processor spent on this program: what else the machine does stays out of it.
#pragma once

#include <ctime>

#ifdef _WIN32
#include "platform/mDeclares.h"
#endif

namespace vantik {

inline double ProcessorSeconds() {
#ifdef _WIN32
    // The C library's clock counts the time of the wall here.
    FILETIME created, ended, kernel, user;
    GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
    const auto ticks = [](const FILETIME& time) {
        return time.dwHighDateTime * 4294967296.0 + time.dwLowDateTime;
    };
    return (ticks(kernel) + ticks(user)) * 1e-7;
#else
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
#endif
}

} // namespace vantik

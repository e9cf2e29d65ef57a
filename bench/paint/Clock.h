// The time that something takes, in microseconds.
#pragma once

#include "platform/mDeclares.h"

namespace vantik::bench {

inline double Now() {
    LARGE_INTEGER counter;
    LARGE_INTEGER frequency;
    QueryPerformanceCounter(&counter);
    QueryPerformanceFrequency(&frequency);
    return 1e6 * static_cast<double>(counter.QuadPart) / static_cast<double>(frequency.QuadPart);
}

template <class Body>
double TimeOf(Body body) {
    const double start = Now();
    body();
    return Now() - start;
}

} // namespace vantik::bench

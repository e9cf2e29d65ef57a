#include "hostile/Leftovers.h"

#include <ostream>
#include <vector>

#include "tests/gfx/GdiObjects.h"

namespace vantik {

namespace {

// There are as many as the system has, less those that are free.
int TakenTlsIndexes() {
    std::vector<DWORD> free;
    for (DWORD index = TlsAlloc(); index != TLS_OUT_OF_INDEXES; index = TlsAlloc()) free.push_back(index);
    for (const DWORD index : free) TlsFree(index);
    constexpr int All = 64 + 1024;
    return All - static_cast<int>(free.size());
}

int CountOfWindows() {
    int windows = 0;
    for (ULONG_PTR handle = 0; handle < 65536; ++handle)
        windows += IsWindow(reinterpret_cast<HWND>(handle)) != 0;
    return windows;
}

// By their values: not every system counts them.
int CountOfHandles() {
    int handles = 0;
    DWORD flags = 0;
    for (ULONG_PTR handle = 4; handle < 65536; handle += 4)
        handles += GetHandleInformation(reinterpret_cast<HANDLE>(handle), &flags) != 0;
    return handles;
}

} // namespace

Leftovers Leftovers::Count() {
    Leftovers counts;
    counts.TlsIndexes = TakenTlsIndexes();
    counts.GdiObjects = test::GdiObjectCount();
    counts.Windows = CountOfWindows();
    counts.Handles = CountOfHandles();
    return counts;
}

std::ostream& operator<<(std::ostream& stream, const Leftovers& counts) {
    return stream << counts.TlsIndexes << " TLS indexes, " << counts.GdiObjects << " GDI objects, "
                  << counts.Windows << " windows, " << counts.Handles << " handles";
}

} // namespace vantik

#include "hostile/random/CrashReport.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "hostile/random/Journal.h"

namespace vantik {

namespace {

const Journal* reported = nullptr;

// Not left to the last handler: window procedures are called under handlers of the system's that swallow everything.
bool IsFatal(DWORD code) noexcept {
    switch (code) {
    case EXCEPTION_ACCESS_VIOLATION:
    case EXCEPTION_ILLEGAL_INSTRUCTION:
    case EXCEPTION_INT_DIVIDE_BY_ZERO:
    case EXCEPTION_PRIV_INSTRUCTION:
    case EXCEPTION_STACK_OVERFLOW:
    case EXCEPTION_BREAKPOINT:
    case 0xC0000374:              // the heap is damaged
    case 0xC0000409: return true; // a buffer on the stack was overrun
    default: return false;
    }
}

void PrintPlace(const void* address) noexcept {
    HMODULE module = nullptr;
    wchar_t path[MAX_PATH] = L"?";
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       static_cast<LPCWSTR>(address), &module);
    if (module) GetModuleFileNameW(module, path, MAX_PATH);
    std::fprintf(stderr, "    at %ls + %llx\n", path,
                 static_cast<unsigned long long>(static_cast<const char*>(address) -
                                                 reinterpret_cast<const char*>(module)));
}

LONG CALLBACK Report(EXCEPTION_POINTERS* exception) {
    const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
    if (!IsFatal(record.ExceptionCode)) return EXCEPTION_CONTINUE_SEARCH;
    char reason[40];
    std::snprintf(reason, sizeof reason, "exception %08lX", record.ExceptionCode);
    PrintPlace(record.ExceptionAddress);
    reported->PrintEnd(reason);
    std::_Exit(3);
}

void Aborted(int) {
    reported->PrintEnd("abort");
    std::_Exit(3);
}

} // namespace

CrashReport::CrashReport(const Journal& journal) : handler_(AddVectoredExceptionHandler(1, Report)) {
    reported = &journal;
    std::signal(SIGABRT, Aborted);
}

CrashReport::~CrashReport() { RemoveVectoredExceptionHandler(handler_); }

} // namespace vantik

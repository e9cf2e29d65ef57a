// Buffers on the stack are guarded by a value that nobody can guess.
#include <doctest/doctest.h>

#include <set>

#include "host/BuiltControl.h"
#include "platform/mDeclares.h"

namespace vantik {

namespace {

// How the program ended that stands beside this one.
DWORD ResultOf(std::wstring arguments) {
    const std::wstring program = ProgramFolder() + L"\\stack_overrun.exe";
    std::wstring line = L"\"" + program + L"\" " + arguments;
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    PROCESS_INFORMATION process = {};
    REQUIRE(CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                           &process));
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD result = 0;
    GetExitCodeProcess(process.hProcess, &result);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return result;
}

} // namespace

TEST_CASE("whoever writes beyond a buffer ends the process there") {
    constexpr DWORD StackBufferOverrun = 0xC0000409;
    CHECK(ResultOf(L"overrun") == StackBufferOverrun);
}

TEST_CASE("the guard is another one in every process") {
    std::set<DWORD> guards;
    for (int process = 0; process < 4; ++process) guards.insert(ResultOf(L""));
    CHECK(guards.size() == 4);
    CHECK(guards.count(0) == 0);
}

} // namespace vantik

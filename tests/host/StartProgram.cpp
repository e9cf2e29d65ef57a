#include "host/StartProgram.h"

#include "host/HostError.h"

namespace vantik {

HANDLE StartProgram(std::wstring command, STARTUPINFOW start) {
    start.cb = sizeof start;
    const BOOL hasHandles = (start.dwFlags & STARTF_USESTDHANDLES) != 0;
    PROCESS_INFORMATION made = {};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, hasHandles, 0, nullptr, nullptr, &start,
                        &made))
        throw HostError("cannot start " + ToUtf8(command));
    CloseHandle(made.hThread);
    return made.hProcess;
}

} // namespace vantik

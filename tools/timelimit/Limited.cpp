#include "timelimit/Limited.h"

#include <cstdlib>

#include "host/StartProgram.h"

namespace vantik {

namespace {

STARTUPINFOW OwnHandles() {
    STARTUPINFOW start = {};
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    start.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
    start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    return start;
}

} // namespace

// Whatever a process of a job starts is in the job, so this one joins it first. Before Windows 8 a process that is in a job
// already can join no other one: then the program ends alone.
Limited::Limited(const std::wstring& command) : job_(CreateJobObjectW(nullptr, nullptr)) {
    AssignProcessToJobObject(job_, GetCurrentProcess());
    process_ = StartProgram(command, OwnHandles());
}

Limited::~Limited() {
    CloseHandle(process_);
    CloseHandle(job_);
}

bool Limited::EndsWithin(DWORD milliseconds) const {
    return WaitForSingleObject(process_, milliseconds) == WAIT_OBJECT_0;
}

DWORD Limited::ExitCode() const {
    DWORD code = 0;
    GetExitCodeProcess(process_, &code);
    return code;
}

bool Limited::Has(DWORD process) const {
    if (process == GetProcessId(process_)) return true;
    const HANDLE opened = OpenProcess(PROCESS_QUERY_INFORMATION, FALSE, process);
    BOOL isInJob = FALSE;
    if (opened) IsProcessInJob(opened, job_, &isInJob);
    CloseHandle(opened);
    return isInJob;
}

void Limited::EndAll(DWORD exitCode) const {
    TerminateProcess(process_, exitCode);
    WaitForSingleObject(process_, 5000);
    TerminateJobObject(job_, exitCode);
    std::_Exit(static_cast<int>(exitCode)); // in no job
}

} // namespace vantik

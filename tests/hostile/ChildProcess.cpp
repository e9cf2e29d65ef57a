#include "hostile/ChildProcess.h"

#include "host/StartProgram.h"

namespace vantik {

namespace {

// Two ends; the one that is the child's is inherited.
struct Pipe {
    HANDLE Read = nullptr, Write = nullptr;

    explicit Pipe(HANDLE Pipe::*childs) {
        CreatePipe(&Read, &Write, nullptr, 0);
        SetHandleInformation(this->*childs, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
    }
};

} // namespace

ChildProcess::ChildProcess(const std::wstring& program) {
    const Pipe input(&Pipe::Read), output(&Pipe::Write);
    input_ = input.Write;
    output_ = output.Read;
    STARTUPINFOW start = {};
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = input.Read;
    start.hStdOutput = output.Write;
    start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    process_ = StartProgram(L"\"" + program + L"\"", start);
    CloseHandle(input.Read);
    CloseHandle(output.Write);
}

ChildProcess::~ChildProcess() {
    CloseHandle(input_);
    WaitForSingleObject(process_, INFINITE);
    CloseHandle(process_);
    CloseHandle(output_);
}

void ChildProcess::Send(const std::string& line) {
    DWORD written = 0;
    const std::string bytes = line + "\n";
    WriteFile(input_, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

std::string ChildProcess::Receive() {
    std::string line;
    DWORD read = 0;
    for (char c = 0; ReadFile(output_, &c, 1, &read, nullptr) && read == 1 && c != '\n';)
        if (c != '\r') line.push_back(c);
    return line;
}

} // namespace vantik

// Another program, spoken to in lines.
#pragma once

#include <string>

#include "platform/mDeclares.h"

namespace vantik {

class ChildProcess {
public:
    explicit ChildProcess(const std::wstring& program); // throws HostError when it cannot be started
    ~ChildProcess();                                    // it ends with its input
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    void Send(const std::string& line);
    std::string Receive(); // waits; empty when it has ended

private:
    HANDLE process_ = nullptr;
    HANDLE input_ = nullptr, output_ = nullptr; // our ends of the pipes
};

} // namespace vantik

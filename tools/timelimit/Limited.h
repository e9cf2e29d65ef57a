// A program with all that it starts, to be ended together.
#pragma once

#include <string>

#include "platform/mDeclares.h"

namespace vantik {

class Limited {
public:
    // With this program's input and output. Throws HostError when it cannot be started.
    explicit Limited(const std::wstring& command);
    ~Limited();
    Limited(const Limited&) = delete;
    Limited& operator=(const Limited&) = delete;

    bool EndsWithin(DWORD milliseconds) const;
    DWORD ExitCode() const;
    bool Has(DWORD process) const; // itself, or what it started

    // Ends what is left of it, and this program as well.
    [[noreturn]] void EndAll(DWORD exitCode) const;

private:
    HANDLE job_ = nullptr, process_ = nullptr;
};

} // namespace vantik

// Says where and in the middle of what the process crashed.
#pragma once

#include "platform/mDeclares.h"

namespace vantik {

class Journal;

class CrashReport {
public:
    explicit CrashReport(const Journal& journal);
    ~CrashReport();
    CrashReport(const CrashReport&) = delete;
    CrashReport& operator=(const CrashReport&) = delete;

private:
    void* handler_;
};

} // namespace vantik

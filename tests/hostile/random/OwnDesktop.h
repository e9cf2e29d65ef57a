// A desktop that the process has for itself: on a shared one others take the focus away when they like, and nothing would
// happen twice in the same way.
#pragma once

#include <string>

#include "platform/mDeclares.h"

namespace vantik {

class OwnDesktop {
public:
    OwnDesktop()
        : before_(GetThreadDesktop(GetCurrentThreadId())),
          own_(CreateDesktopW((L"random" + std::to_wstring(GetCurrentProcessId())).c_str(), nullptr, nullptr,
                              0, GENERIC_ALL, nullptr)) {
        SetThreadDesktop(own_);
    }
    ~OwnDesktop() {
        SetThreadDesktop(before_);
        CloseDesktop(own_);
    }
    OwnDesktop(const OwnDesktop&) = delete;
    OwnDesktop& operator=(const OwnDesktop&) = delete;

private:
    HDESK before_, own_;
};

} // namespace vantik

// A sample in a process of its own, with the form that it shows: looked at as a screen reader does, and driven by messages.
#pragma once

#include <functional>
#include <string>

#include "acctree/Node.h"

namespace vantik {

class RunningSample {
public:
    // Waits for the form. Throws HostError when it does not come.
    RunningSample(const std::wstring& program, const std::wstring& title);
    ~RunningSample(); // by force, if it is still there
    RunningSample(const RunningSample&) = delete;
    RunningSample& operator=(const RunningSample&) = delete;

    HWND Form() const noexcept { return form_; }
    HWND Tabs() const; // the control's window, which stands on it

    std::string Tree() const;
    void Press(WORD key) const; // while the control has the focus

    // False when it did not become so within half a minute.
    static bool Becomes(const std::function<bool()>& holds);

    // As its user closes it: the exit code, or STILL_ACTIVE.
    DWORD Close() const;

private:
    HANDLE process_ = nullptr;
    HWND form_ = nullptr;
};

} // namespace vantik

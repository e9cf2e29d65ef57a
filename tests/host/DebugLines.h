// What this program says to a debugger while one of these lives, as the debugger would hear it.
#pragma once

#include <string>
#include <vector>

namespace vantik {

class DebugLines {
public:
    DebugLines();
    ~DebugLines();
    DebugLines(const DebugLines&) = delete;
    DebugLines& operator=(const DebugLines&) = delete;

    // The lines of the control since the last call, in UTF-8, without their prefix and their line end.
    std::vector<std::string> Take();

private:
    void* handler_;
};

} // namespace vantik

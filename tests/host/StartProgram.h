// Another program.
#pragma once

#include <string>

#include "platform/mDeclares.h"

namespace vantik {

// The process of the command, which the caller closes. What `start` hands down has to be inheritable. Throws HostError when
// it cannot be started.
HANDLE StartProgram(std::wstring command, STARTUPINFOW start = {});

} // namespace vantik

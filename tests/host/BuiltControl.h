// Where the built control is.
#pragma once

#include <string>

namespace vantik {

// The folder of the running program, which is where a control looks for its skin.
std::wstring ProgramFolder();

// Beside the running program or, from there upwards, in the build tree. Throws HostError when it is in neither.
std::wstring FindBuiltControl();

} // namespace vantik

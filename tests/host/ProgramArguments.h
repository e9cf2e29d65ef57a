// The command line of this program, whatever its code page.
#pragma once

#include <string>
#include <vector>

namespace vantik {

std::vector<std::wstring> ProgramArguments(); // without the program's name

} // namespace vantik

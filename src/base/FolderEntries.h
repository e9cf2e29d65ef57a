// What lies in a folder.
#pragma once

#include <string>
#include <vector>

namespace vantik {

// The entries whose names differ from this one in case alone, as they are spelt there: Windows has at most one. None of a
// folder that is not there.
std::vector<std::u16string> EntriesNamed(const std::u16string& folder, const std::u16string& name);

} // namespace vantik

// What makes a tree of accessible objects hard to use, as checkers of accessibility test it.
#pragma once

#include <string>
#include <vector>

#include "acctree/Node.h"

namespace vantik {

// A line for each fault; none for a good tree. Windows on the control are the system's affair and not looked into.
std::vector<std::string> FaultsOf(const Node& root);

} // namespace vantik

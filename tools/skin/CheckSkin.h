// Every fault of a skin.
#pragma once

#include <vector>

#include "tools/skin/Fault.h"
#include "tools/skin/SkinSource.h"

namespace vantik {

// In the order of their places. What is a fault is decided by the control's own parser and decoder where they decide.
std::vector<Fault> CheckSkin(const SkinSource& source);

} // namespace vantik

// Every fault of a skin.
#pragma once

#include <vector>

#include "check/Fault.h"
#include "check/FolderSource.h"

namespace vantik {

// In the order of their places. What is a fault is decided by the control's own parser and decoder where they decide.
std::vector<Fault> CheckSkin(const SkinSource& source);

// The same, and what there is to say where the definition itself is not there.
std::vector<Fault> CheckSavedSkin(const FolderSource& source);

} // namespace vantik

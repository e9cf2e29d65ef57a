// What every scale has to keep: the control fills its window, and what is painted is what the pointer hits.
#pragma once

#include <functional>

#include "ole/window/WindowedControl.h"

namespace vantik {

// Checks controls that stand at a place of their own each, with their bars on each side. The control is new and has no
// site.
void CheckPaintedIsHit(const std::function<ComPtr<IUnknown>()>& newControl);

} // namespace vantik

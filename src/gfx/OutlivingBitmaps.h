// Bitmaps that outlive the control that made them.
#pragma once

#include "gfx/Handles.h"

namespace vantik {

// The bitmap stays with the system until the module goes.
void KeepUntilUnloaded(OwnedBitmap bitmap) noexcept;

} // namespace vantik

// The window class of the control.
#pragma once

#include "platform/mDeclares.h"

namespace vantik {

// Registered once for the module, on first use; 0 when that fails.
ATOM ControlWindowClass() noexcept;
void UnregisterControlWindowClass() noexcept;

} // namespace vantik

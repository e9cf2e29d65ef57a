// The window class of the control, which its windows register.
#pragma once

#include "platform/mDeclares.h"

namespace vantik {

void UnregisterControlWindowClass() noexcept;

} // namespace vantik

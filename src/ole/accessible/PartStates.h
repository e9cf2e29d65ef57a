// The roles and states of the parts, in the constants of IAccessible.
#pragma once

#include "ole/accessible/Part.h"
#include "ole/control/Control.h"

namespace vantik {

LONG RoleOf(const Part& part) noexcept;                 // ROLE_SYSTEM_...
LONG StateOf(const Control& control, const Part& part); // STATE_SYSTEM_...

} // namespace vantik

// Changes of the system's that the control and the windows on it look different after.
#pragma once

#include "ole/window/ControlWindow.h"

namespace vantik {

// Colours, theme, the settings of the user, another scale.
bool IsSystemChange(UINT message) noexcept;

// The system tells top-level windows alone of colours and settings, and their hosts pass that on: so does the control, to
// the windows on it. Of the rest it tells every window itself.
void PassSystemChangeOn(const Message& message);

} // namespace vantik

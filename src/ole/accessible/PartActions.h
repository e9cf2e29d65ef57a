// What can be done with the parts: what a press or a key would do.
#pragma once

#include "ole/accessible/Part.h"
#include "ole/control/Control.h"

namespace vantik {

// The part's default action. Raises DISP_E_MEMBERNOTFOUND where it has none, and E_ACCESSDENIED where the user could not
// do it either: the control is disabled, hidden or under design, or the button has nothing to scroll to.
void Act(Control& control, const Part& part);

// SELFLAG_TAKEFOCUS, SELFLAG_TAKESELECTION or both. Raises E_INVALIDARG for others, else as above.
void Select(Control& control, const Part& part, LONG flags);

} // namespace vantik

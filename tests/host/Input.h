// The user's pointer and keys, as a window receives them.
#pragma once

#include "host/HostForm.h"

namespace vantik {

// Positions are pixels relative to the control. Each returns when everything that it set off is done.
void MovePointer(HostForm& form, POINT point);
void PressButton(HostForm& form, POINT point); // the left one, after a move to the point
void ReleaseButton(HostForm& form, POINT point);
void PressKey(HostForm& form, WORD key); // down and up; the control gets the focus if nothing on it has it
void TypeKey(HostForm& form, WORD key);  // the same for whatever has the focus
void TurnWheel(HostForm& form, int notches); // positive: away from the user

} // namespace vantik

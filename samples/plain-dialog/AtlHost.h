// Controls in dialog templates, by the system's atl.dll: windows of class AtlAxWin, whose text names the control.
#pragma once

#include "Com.h"

// Makes the class known; before the first dialog that uses it.
void InitAtl();

// In a window of the class. Throws the error where there is none.
Com<IUnknown> ControlIn(HWND window);

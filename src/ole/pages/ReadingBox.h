// A text box of many lines that is only read: its keys are the page's.
#pragma once

#include <string>

#include "platform/mDeclares.h"

namespace vantik {

// Once. A box of many lines would take Tab, Enter and Escape for itself, and have all of it selected whenever it gets the
// keyboard.
void LeaveKeysToPage(HWND box) noexcept;

} // namespace vantik

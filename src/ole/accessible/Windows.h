// The windows on the control's page.
#pragma once

#include <vector>

#include "platform/mDeclares.h"

namespace vantik {

// The windows that show on this one, the foremost first.
std::vector<HWND> ShownChildren(HWND window);

// The one of them that the position, in pixels of the screen, or the keyboard focus is in; null for none.
HWND ShownChildAt(HWND window, POINT screen) noexcept;
HWND FocusedChild(HWND window) noexcept;

} // namespace vantik

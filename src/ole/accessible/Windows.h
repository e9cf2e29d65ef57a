// The windows on the control's page.
#pragma once

#include <vector>

#include "model/LayoutRect.h"
#include "platform/mDeclares.h"

namespace vantik {

// The windows that show on this one, the foremost first.
std::vector<HWND> ShownChildren(HWND window);

RECT ClientOnScreen(HWND window) noexcept;

// A child of the control's window: whether it stands where pages that do not show are kept, beside the control for its whole
// width; and whether it is to be seen on the page, as far as the control lets it.
bool IsParked(HWND child, const RECT& control) noexcept;
bool Shows(HWND child, const RECT& control) noexcept;

// The one of them that the position, in pixels of the screen, or the keyboard focus is in; null for none.
HWND ShownChildAt(HWND window, POINT screen) noexcept;
HWND FocusedChild(HWND window) noexcept;

// An area of the window in pixels of the screen, and whether the pointer is there with nothing between.
RECT OnScreen(HWND window, const LayoutRect& area) noexcept;
bool IsUnderPointer(HWND window, const LayoutRect& area) noexcept;

} // namespace vantik

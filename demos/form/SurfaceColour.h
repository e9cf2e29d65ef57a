// What a control paints behind its children.
#pragma once

#include <optional>

#include "platform/mDeclares.h"

namespace vantik {

// The colour at the middle of the control's own drawing; empty when it draws nothing.
std::optional<COLORREF> SurfaceColour(IUnknown* control, HWND window);

} // namespace vantik

// Draws plain memory on device contexts, without a bitmap of the system's: a skin's pieces are small and many.
#pragma once

#include <cstdint>

#include "platform/mDeclares.h"

namespace vantik {

// Rows of `size` from the top, 0xRRGGBB in each pixel's low 24 bits, stretched to the place.
void DrawRows(HDC target, const RECT& place, SIZE size, const std::uint32_t* rows,
              DWORD operation = SRCCOPY) noexcept;

} // namespace vantik

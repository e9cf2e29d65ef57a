// Draws plain memory on device contexts, without a bitmap of the system's: a skin's pieces are small and many.
#pragma once

#include <cstdint>

#include "platform/mDeclares.h"

namespace vantik {

inline constexpr WORD RowsDepth = 32;

// Of rows from the top, 0xRRGGBB in each pixel's low 24 bits.
BITMAPINFO FormatOfRows(SIZE size) noexcept;

// Such rows, stretched to the place.
void DrawRows(HDC target, const RECT& place, SIZE size, const std::uint32_t* rows,
              DWORD operation = SRCCOPY) noexcept;

} // namespace vantik

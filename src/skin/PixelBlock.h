// A part of a control's surface, so that it can be compared and put back.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/UserControl.h"

namespace vantik {

// Without values when it is empty or too large to be kept.
struct PixelBlock {
    std::int32_t X = 0, Y = 0; // where it was read
    std::int32_t Width = 0, Height = 0;
    std::vector<std::uint32_t> Values; // 0xRRGGBB, 0 where the surface has no pixels
    std::int32_t SkippedColumns = 0,
                 SkippedRows = 0; // of the picture that goes there: they lie where it is not seen

    bool LooksLike(const PixelBlock& other) const noexcept {
        return Width == other.Width && Height == other.Height && SkippedColumns == other.SkippedColumns &&
               SkippedRows == other.SkippedRows && Values == other.Values;
    }
};

PixelBlock ReadBlock(UserControl& host, std::int32_t x, std::int32_t y, std::int32_t width,
                     std::int32_t height);

void DrawBlock(HDC surface, std::int32_t x, std::int32_t y, const PixelBlock& block) noexcept;

} // namespace vantik

#include "skin/PixelBlock.h"

#include "gfx/RowDrawing.h"

namespace vantik {

namespace {

constexpr std::int32_t MaxExtent = 2048; // of what larger icons cover is mixed afresh each time

} // namespace

PixelBlock ReadBlock(UserControl& host, std::int32_t x, std::int32_t y, std::int32_t width,
                     std::int32_t height) {
    PixelBlock block{x, y, width, height, {}};
    if (width < 1 || height < 1 || width > MaxExtent || height > MaxExtent) return block;
    block.Values.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    if (!host.ReadSurface({x, y, x + width, y + height}, block.Values)) block.Values.clear();
    return block;
}

void DrawBlock(HDC surface, std::int32_t x, std::int32_t y, const PixelBlock& block) noexcept {
    if (block.Values.empty()) return;
    DrawRows(surface, {x, y, x + block.Width, y + block.Height}, {block.Width, block.Height},
             block.Values.data());
}

} // namespace vantik

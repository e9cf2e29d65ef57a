#include "render/FrameGeometry.h"

#include <algorithm>

#include "base/Checked.h"
#include "base/ErrorText.h"

namespace vantik {

namespace {

FramePart PartAt(const SkinRect& source, Checked x, Checked y, Checked width, Checked height) {
    return {source, LayoutRect::FromEdges(x, y, x + width, y + height)};
}

FramePart EdgeAt(const SkinRect& source, Checked x, Checked y, Checked width, Checked height) {
    for (const std::int32_t value : {x, y, width, height})
        if (!std::in_range<std::int16_t>(value))
            Raise(RunTimeErrorNumber::Overflow, u"The page's frame cannot reach to ", value, u" pixels");
    return PartAt(source, x, y, width, height);
}

} // namespace

std::array<FramePart, 4> FrameEdges(const LayoutCache& layout, const SkinRects& rects) {
    const LayoutRect& page = layout.ClientRect;
    const SkinRect &left = rects[FLeftLine], &right = rects[FRightLine];
    const SkinRect &top = rects[FTopLine], &bottom = rects[FBottomLine];
    // The bottom line's width places the right edge; skins give both pieces the same.
    const Checked rightX = Checked(page.Right) - bottom.Width;
    return {EdgeAt(left, page.Left, page.Top, left.Width, page.Height),
            EdgeAt(right, rightX, page.Top, right.Width, page.Height),
            EdgeAt(top, page.Left, page.Top, page.Width, top.Height),
            EdgeAt(bottom, page.Left, page.Bottom, page.Width, bottom.Height)};
}

std::array<FramePart, 4> FrameCorners(const LayoutCache& layout, const SkinRects& rects) {
    const LayoutRect& page = layout.ClientRect;
    const Checked end = Checked(page.Bottom) + rects[FBottomLine].Height;
    const auto corner = [&](std::int32_t index, bool isRight, bool isBottom) {
        const SkinRect& piece = rects[index];
        return PartAt(piece, isRight ? Checked(page.Right) - piece.Width : Checked(page.Left),
                      isBottom ? end - piece.Height : Checked(page.Top), piece.Width, piece.Height);
    };
    return {corner(RLeftTopPic, false, false), corner(RRightTopPic, true, false),
            corner(RLeftBottom, false, true), corner(RRightBottom, true, true)};
}

LayoutRect PictureRect(const LayoutCache& layout, const SkinRects& rects) {
    const LayoutRect& page = layout.ClientRect;
    return LayoutRect::FromEdges(Checked(page.Left) + rects[FLeftLine].Width,
                                 Checked(page.Top) + rects[FTopLine].Height,
                                 Checked(page.Right) - rects[FBottomLine].Width, page.Bottom);
}

LayoutRect Intersection(const LayoutRect& a, const LayoutRect& b) noexcept {
    LayoutRect both;
    both.Left = std::max(a.Left, b.Left);
    both.Top = std::max(a.Top, b.Top);
    both.Right = std::max(std::min(a.Right, b.Right), both.Left);
    both.Bottom = std::max(std::min(a.Bottom, b.Bottom), both.Top);
    // Cannot overflow: both extents of an intersection lie within those of a.
    both.Width = both.Right > both.Left ? both.Right - both.Left : 0;
    both.Height = both.Bottom > both.Top ? both.Bottom - both.Top : 0;
    return both;
}

} // namespace vantik

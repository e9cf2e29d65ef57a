// Where the frame's edges, its corners and the picture lie around the page.
#pragma once

#include <array>

#include "model/LayoutRect.h"
#include "model/Skin.h"

namespace vantik {

struct FramePart {
    SkinRect Source;
    LayoutRect Destination;
};

// Left, right, top and bottom edge, in painting order. Their coordinates are 16-bit values: Overflow.
std::array<FramePart, 4> FrameEdges(const LayoutCache& layout, const SkinRects& rects);

// Left top, right top, left bottom, right bottom: each at its corner of the page, the bottom pieces ending where the
// bottom edge ends.
std::array<FramePart, 4> FrameCorners(const LayoutCache& layout, const SkinRects& rects);

// The page inside the frame's edges.
LayoutRect PictureRect(const LayoutCache& layout, const SkinRects& rects);

LayoutRect Intersection(const LayoutRect& a, const LayoutRect& b) noexcept;
inline bool IsEmpty(const LayoutRect& rect) noexcept { return rect.Width < 1 || rect.Height < 1; }

} // namespace vantik

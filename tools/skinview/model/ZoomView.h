// A bitmap enlarged by a whole number, seen through a window that can be scrolled.
#pragma once

#include <algorithm>
#include <cstdint>

#include "tools/skinview/model/Piece.h"

namespace vantik {

struct ViewPoint {
    std::int32_t X = 0, Y = 0;
};

struct ViewSize {
    std::int32_t Width = 0, Height = 0;
};

class ZoomView {
public:
    static constexpr std::int32_t Most = 32;
    static constexpr std::int32_t Margin = 24; // around the bitmap, where names find room

    std::int32_t Zoom = 1;
    ViewPoint Scrolled; // how far the view has gone over the bitmap and its margins

    // The largest zoom with which all of the bitmap is seen, 1 at least.
    static std::int32_t Fitting(ViewSize bitmap, ViewSize window) noexcept {
        const std::int32_t wide = (window.Width - 2 * Margin) / std::max(bitmap.Width, 1);
        const std::int32_t high = (window.Height - 2 * Margin) / std::max(bitmap.Height, 1);
        return std::clamp(std::min(wide, high), 1, Most);
    }

    ViewSize Whole(ViewSize bitmap) const noexcept {
        return {bitmap.Width * Zoom + 2 * Margin, bitmap.Height * Zoom + 2 * Margin};
    }

    // Edges of pixels.
    ViewPoint ToView(std::int32_t x, std::int32_t y) const noexcept {
        return {x * Zoom + Margin - Scrolled.X, y * Zoom + Margin - Scrolled.Y};
    }
    PixelBox ToView(const PixelBox& box) const noexcept {
        const ViewPoint from = ToView(box.Left, box.Top), to = ToView(box.Right, box.Bottom);
        return {from.X, from.Y, to.X, to.Y};
    }

    // The pixel that shows at a point; beyond the bitmap it counts on.
    ViewPoint ToPixel(ViewPoint point) const noexcept {
        return {Down(point.X + Scrolled.X - Margin), Down(point.Y + Scrolled.Y - Margin)};
    }

    // Another zoom, under which the same pixel stays at the point.
    ZoomView ZoomedAt(ViewPoint point, std::int32_t zoom) const noexcept {
        ZoomView view = *this;
        view.Zoom = std::clamp(zoom, 1, Most);
        view.Scrolled.X = (point.X + Scrolled.X - Margin) * view.Zoom / Zoom + Margin - point.X;
        view.Scrolled.Y = (point.Y + Scrolled.Y - Margin) * view.Zoom / Zoom + Margin - point.Y;
        return view;
    }

    // Scrolled no farther than there is something to see.
    void StayInside(ViewSize bitmap, ViewSize window) noexcept {
        const ViewSize whole = Whole(bitmap);
        Scrolled.X = std::clamp(Scrolled.X, 0, std::max(whole.Width - window.Width, 0));
        Scrolled.Y = std::clamp(Scrolled.Y, 0, std::max(whole.Height - window.Height, 0));
    }

private:
    std::int32_t Down(std::int32_t distance) const noexcept {
        return (distance >= 0 ? distance : distance - Zoom + 1) / Zoom;
    }
};

} // namespace vantik

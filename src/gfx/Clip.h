// Painting on one side of a rectangle's edges only.
#pragma once

#include "gfx/Handles.h"
#include "model/LayoutRect.h"

namespace vantik {

// Painting inside a rectangle only. Each of these restores the clipping, and everything else that was set in the context,
// at its end.
class [[nodiscard]] Clip {
public:
    Clip(HDC dc, const LayoutRect& area) noexcept : saved_(dc) {
        // GDI would turn an inside-out rectangle round; an empty one lets nothing through.
        if (area.Width < 1 || area.Height < 1)
            IntersectClipRect(dc, 0, 0, 0, 0);
        else
            IntersectClipRect(dc, area.Left, area.Top, area.Right, area.Bottom);
    }

private:
    SavedDC saved_;
};

// Painting outside a rectangle only.
class [[nodiscard]] ClipOutside {
public:
    ClipOutside(HDC dc, const LayoutRect& area) noexcept : saved_(dc) {
        if (area.Width > 0 && area.Height > 0)
            ExcludeClipRect(dc, area.Left, area.Top, area.Right, area.Bottom);
    }

private:
    SavedDC saved_;
};

} // namespace vantik

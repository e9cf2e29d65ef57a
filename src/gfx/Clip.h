// Painting on one side of a rectangle's edges only.
#pragma once

#include "gfx/Handles.h"
#include "model/LayoutRect.h"
#include "platform/Shortage.h"

namespace vantik {

// Painting inside a rectangle only. Each of these restores the clipping, and everything else that was set in the context,
// at its end.
class [[nodiscard]] Clip {
public:
    Clip(HDC dc, const LayoutRect& area) : saved_(dc) {
        // GDI would turn an inside-out rectangle round; an empty one lets nothing through.
        const LayoutRect inside = area.Width < 1 || area.Height < 1 ? LayoutRect{} : area;
        const int clipped = IntersectClipRect(dc, inside.Left, inside.Top, inside.Right, inside.Bottom);
        TellShortageUnless(clipped != ERROR);
    }

private:
    SavedDC saved_;
};

// Painting outside a rectangle only.
class [[nodiscard]] ClipOutside {
public:
    ClipOutside(HDC dc, const LayoutRect& area) : saved_(dc) {
        if (area.Width < 1 || area.Height < 1) return;
        const int clipped = ExcludeClipRect(dc, area.Left, area.Top, area.Right, area.Bottom);
        TellShortageUnless(clipped != ERROR);
    }

private:
    SavedDC saved_;
};

} // namespace vantik

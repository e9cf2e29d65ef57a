// Rectangles of the layout, in pixels.
#pragma once

#include <cstdint>

#include "base/Checked.h"
#include "model/Enumerations.h"

namespace vantik {

// Width = Right - Left and Height = Bottom - Top (no plus one); nothing is clamped, both may be negative.
struct LayoutRect {
    std::int32_t Left = 0, Top = 0, Right = 0, Bottom = 0, Width = 0, Height = 0;

    static LayoutRect FromEdges(Checked left, Checked top, Checked right, Checked bottom) {
        return {left, top, right, bottom, right - left, bottom - top};
    }

    friend bool operator==(const LayoutRect&, const LayoutRect&) = default;
};

// What painting and hit testing read; filled by ComputeVisibleBars and ComputeLayout.
struct LayoutCache {
    LayoutRect ControlRect;  // the whole control
    LayoutRect FrameRect;    // the control inset by FrameDist
    LayoutRect BarBandRect;  // the band along the side that carries the bars
    LayoutRect BarStripRect; // the strip occupied by the visible bars
    LayoutRect ClientRect;   // the page area inside the frame
    Boolean IsHorizontal = False;
    std::int16_t FirstVisibleTab = 0; // tab shown in the first bar position
    std::int16_t VisibleBarCount = 0; // bar positions shown; negative when not even the buttons have room
};

} // namespace vantik

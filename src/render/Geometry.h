// Where the strip of bars, the band that carries it, the frame and the page lie. Pure arithmetic in whole pixels.
#pragma once

#include <cstdint>

#include "model/LayoutRect.h"
#include "model/Properties.h"
#include "model/Skin.h"

namespace vantik {

struct GeometryInput {
    const PropertyValues& Properties;
    const vantik::SkinRects& SkinRects;
    const vantik::SkinIcons& SkinIcons;
    std::int32_t ControlWidthPx;
    std::int32_t ControlHeightPx;
};

// Both return the previous layout with their own fields computed anew, and raise before anything is stored. The order is
// ComputeVisibleBars, then ComputeLayout; IsHorizontal is set before.

// The overflow rule: VisibleBarCount and, where the row would end in a gap, FirstVisibleTab. Room for the buttons beside
// the strip is always kept, even when every bar would fit without it. Overflow; DivisionByZero for a BarWidth of 0.
LayoutCache ComputeVisibleBars(const GeometryInput& input, LayoutCache layout);

// The five rectangles. With TabCustom the strip keeps the leading edge of the previous layout; a TabPos that names no
// side leaves strip, band and page as they were. Overflow.
LayoutCache ComputeLayout(const GeometryInput& input, LayoutCache layout);

} // namespace vantik

// Where icons and buttons lie. Painting and hit testing both read these functions, so what is seen is what is hit.
#pragma once

#include <cstdint>

#include "model/ControlState.h"

namespace vantik {

struct PixelPoint {
    std::int32_t X = 0, Y = 0;
};

// The top-left corner of the icon on the bar of the tab `index` in the look `state`: behind the bar's leading end piece
// and, across the bar, in the middle of that look's fill. SubscriptOutOfRange when a piece leaves the skin table;
// Overflow, as from all of these.
PixelPoint TabIconPosition(const ControlState& control, std::int16_t index, std::uint8_t state,
                           PngSize iconSize);

// Right and Bottom of the rectangles below are the last pixels inside, so Width and Height are one less than the extent;
// an icon that is missing has none.

// The close button of a bar: before the widest trailing end piece, whatever the look, in the middle of the strip.
LayoutRect CloseButtonRect(const ControlState& control, std::int32_t slot);

// The buttons beside the strip, as large as their icons: behind its far end, or before its leading end when the bars
// sit at the far end of their side. Icons are not turned; beside a vertical strip the buttons run downwards. They lie
// inside the control, unless the host shifts them out of it; the gaps beside them shrink to that end. Where that is not
// enough they reach under the row.
struct ButtonRects {
    LayoutRect Previous, Next, Menu;

    friend bool operator==(const ButtonRects&, const ButtonRects&) = default;
};
ButtonRects NavButtonRects(const ControlState& control);

} // namespace vantik

// What the bar painting asks of the decorations, which belong to the skin one floor above.
#pragma once

#include <cstdint>

namespace vantik {

// `index` is the tab's number, `state` the look of its bar. Each draws onto the control's surface, in the variant of
// the current orientation, over the bar (or the band) as it stands; on a bar nothing leaves its room (RoomRect).
class BarDecorations {
public:
    virtual ~BarDecorations() = default;

    virtual void DrawTabIcon(std::int16_t index, std::uint8_t state) = 0;

    // Leaves the number of the cache slot (0 to 5) in `state`, whether or not a button was drawn.
    virtual void DrawCloseButton(std::int16_t index, std::uint8_t& state, std::uint8_t& flag) = 0;

    // The three buttons beside the strip, released. Drawing them again over themselves changes nothing: the clean
    // underlay is restored first (FramePainter::PaintUnderlay).
    virtual void DrawNavButtons() = 0;

    // Pixels that the tab's icon is wide; 0 when it has none. The caption is shortened by as much.
    virtual std::int32_t TabIconWidth(std::int16_t index) = 0;
};

} // namespace vantik

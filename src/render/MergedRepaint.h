// Repaints that wait until somebody can see them.
//
// Layout and errors come at once; the pixels of RepaintAll and RedrawBars come when the surface is next looked at, so
// that a thousand insertions paint once. Nobody can tell this from painting at once, because
//   - a waiting repaint is dropped only for one that overwrites everything it would have painted, and
//   - it is carried out before anything that draws without overwriting all of it, and before any change to what the
//     painting reads that is not followed by a repaint (CarryOut is for the caller of such a change).
// A repaint that fails does not wait: what it paints before its error is on the surface when it raises.
#pragma once

#include <cstdint>

#include "render/RepaintDriver.h"

namespace vantik {

class MergedRepaint {
public:
    explicit MergedRepaint(RepaintDriver& driver) noexcept : driver_(driver) {}

    void RepaintAll();
    void RedrawBars();

    // Draws the bar at once unless a repaint waits, which will.
    void RedrawBar(std::int16_t index, std::uint8_t state);

    // Draws at once, over what waited.
    void RepaintFrame();

    // Paints what waits. Does nothing when called again from inside the painting.
    void CarryOut();

    bool IsWaiting() const noexcept { return waiting_ != Waiting::Nothing; }

private:
    enum class Waiting : std::uint8_t { Nothing, Bars, All };

    void WaitFor(Waiting what);

    RepaintDriver& driver_;
    Waiting waiting_ = Waiting::Nothing;
};

} // namespace vantik

// Repaints that wait until somebody can see them.
//
// Layout and errors come at once; the pixels of RepaintAll and RedrawBars come when the surface is next looked at, so
// that a thousand insertions paint once. Nobody can tell this from painting at once, because
//   - a waiting repaint is dropped only for one that overwrites everything it would have painted,
//   - it is carried out before anything that draws without overwriting all of it, and before any change to what the
//     painting reads that is not followed by a repaint (CarryOut is for the caller of such a change), and
//   - it paints the hovered tab and the first visible one that there were when it was asked for: handlers of the host
//     hold these two by reference and may change them at any moment without a word.
// A repaint that fails does not wait: what it paints before its error is on the surface when it raises.
#pragma once

#include <cstdint>

#include "render/RepaintDriver.h"

namespace vantik {

class MergedRepaint {
public:
    MergedRepaint(RepaintDriver& driver, ControlState& control) noexcept
        : driver_(driver), control_(control) {}

    void RepaintAll();
    void RedrawBars();

    // The same where what waits may have been told to a window that was validated since.
    void RepaintAfresh();

    // Draws the bar at once unless a repaint waits, which will. Whoever changes one bar carries out before what waits for
    // another row: that must not show the change.
    void CarryOutOtherRow();
    void RedrawBar(std::int16_t index, std::uint8_t state);

    // Draws at once, over what waited.
    void RepaintFrame();

    // Paints what waits. Does nothing when called again from inside the painting.
    void CarryOut();

    bool IsWaiting() const noexcept { return waiting_ != Waiting::Nothing; }

private:
    enum class Waiting : std::uint8_t { Nothing, Bars, All };

    // What handlers may change behind the control's back.
    struct Row {
        std::int16_t HoverTab, FirstVisibleTab;
        bool operator==(const Row&) const = default;
    };
    class AsAsked;

    Row CurrentRow() const noexcept { return {control_.HoverTab, control_.Layout.FirstVisibleTab}; }
    void CurrentRow(const Row& row) noexcept {
        control_.HoverTab = row.HoverTab;
        control_.Layout.FirstVisibleTab = row.FirstVisibleTab;
    }
    void WaitFor(Waiting what);

    RepaintDriver& driver_;
    ControlState& control_;
    Waiting waiting_ = Waiting::Nothing;
    Row asked_ = {}; // for what waits
};

} // namespace vantik

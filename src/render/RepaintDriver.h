// The ways in which the control repaints itself, straight onto its persistent surface.
//
// RepaintAll and RedrawBars come in two halves, too: Prepare computes and stores the layout and raises every error of the
// geometry, Paint only draws what the state says then. A caller may put painting off as long as nobody sees the surface
// and nothing changes that the pending repaint would not have seen. Where Prepare raises, the whole repaint stores and
// paints what comes before the error, and raises it again.
#pragma once

#include <cstdint>

#include "model/ControlState.h"
#include "platform/UserControl.h"
#include "render/BarDecorations.h"
#include "render/BarPainter.h"
#include "render/FramePainter.h"
#include "render/Geometry.h"
#include "render/Surfaces.h"

namespace vantik {

class RepaintDriver {
public:
    RepaintDriver(UserControl& host, ControlState& control, Surfaces& surfaces,
                  BarDecorations& decorations) noexcept
        : host_(host),
          control_(control),
          decorations_(decorations),
          frame_(host, control, surfaces),
          bars_(host, control, surfaces, decorations) {}

    // After anything that moves or resizes: layout, background, frame, picture, corners, bars, buttons.
    void RepaintAll();

    // After anything that changes only the look of bars: restores what lies under the row, draws every visible bar and
    // invalidates the row, which is the strip unless bars reach beyond it.
    void RedrawBars();

    // The one bar over its clean underlay; invalidates only that bar. Where bars overlap, the whole row is drawn with it,
    // so that no bar shows half of what it is by now. A bar outside the visible row draws nothing.
    void RedrawBar(std::int16_t index, std::uint8_t state);

    // The frame's edges and what lies over them (not the picture) but for the bars, which the caller redraws next.
    void RepaintFrame();

    void PrepareAll();
    void PaintAll();
    void PrepareBars() const;
    void PaintBars();

    // Tell the window what a repaint changes. Whoever puts painting off does so when the repaint begins to wait.
    void InvalidateAll();
    void InvalidateBars();

private:
    GeometryInput Input();
    Boolean IsHorizontal() const noexcept;
    void PaintForeground();
    void DrawBars();
    template <class StateOf>
    void DrawBars(StateOf stateOf);
    void Invalidate(const LayoutRect& area);

    UserControl& host_;
    ControlState& control_;
    BarDecorations& decorations_;
    FramePainter frame_;
    BarPainter bars_;
};

} // namespace vantik

// Everything under the bars: the flat background, the frame, its corners and the picture.
#pragma once

#include "model/ControlState.h"
#include "platform/UserControl.h"
#include "render/Surfaces.h"

namespace vantik {

class FramePainter {
public:
    FramePainter(UserControl& host, const ControlState& control, Surfaces& surfaces) noexcept
        : host_(host), control_(control), surfaces_(surfaces) {}

    // The single pixel at FBackPic's corner over the whole control.
    void PaintBackground();

    // The four edges around the page. CheckFrame raises the Overflow that PaintFrame would: the coordinates are 16-bit.
    void PaintFrame();
    void CheckFrame() const;

    // The picture inside the frame's lines, aligned with the control's container, then the four corner pieces.
    void PaintCorners();

    // All of the above, as a full repaint paints it, but only inside the area.
    void PaintUnderlay(const LayoutRect& area);

private:
    void PaintPicture();
    void DrawCorner(const SkinRect& piece, std::int32_t x, std::int32_t y);

    UserControl& host_;
    const ControlState& control_;
    Surfaces& surfaces_;
};

} // namespace vantik

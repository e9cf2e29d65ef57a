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

    // The one pixel at FBackPic's left top corner over the area.
    void PaintBackground(const LayoutRect& area);

    // The four edges around the page.
    void PaintFrame();

    // The picture inside the frame's edges, aligned with the control's container, then the four corner pieces.
    void PaintCorners();

    // The four corner pieces alone.
    void PaintCornerPieces();

    // All of the above as a full repaint leaves it, but only inside the area.
    void PaintUnderlay(const LayoutRect& area);

private:
    void PaintFrame(const LayoutRect& area);
    void PaintPictureAndCorners(const LayoutRect& area);
    void PaintPicture(const LayoutRect& area);
    void PaintCornerPieces(const LayoutRect& area);

    UserControl& host_;
    const ControlState& control_;
    Surfaces& surfaces_;
};

} // namespace vantik

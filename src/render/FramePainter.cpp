#include "render/FramePainter.h"

#include "base/Rounding.h"
#include "gfx/Clip.h"
#include "render/FrameGeometry.h"

namespace vantik {

void FramePainter::PaintBackground(const LayoutRect& area) {
    const SkinRect& source = control_.SkinRects[FBackPic];
    surfaces_.SkinDC.StretchDraw(host_.hDC(), area.Left, area.Top, area.Width, area.Height, source.Left,
                                 source.Top, 1, 1);
}

void FramePainter::PaintFrame() { PaintFrame(control_.Layout.ControlRect); }

void FramePainter::PaintFrame(const LayoutRect& area) {
    const HDC surface = host_.hDC();
    for (const auto& [source, to] : FrameEdges(control_.Layout, control_.SkinRects)) {
        if (IsEmpty(Intersection(to, area))) continue;
        surfaces_.SkinDC.StretchDraw(surface, to.Left, to.Top, to.Width, to.Height, source.Left, source.Top,
                                     source.Width, source.Height);
    }
}

void FramePainter::PaintCorners() {
    surfaces_.PictureSurface.CreateFromPicture(surfaces_.Picture.Get());
    PaintPictureAndCorners(control_.Layout.ControlRect);
}

void FramePainter::PaintPictureAndCorners(const LayoutRect& area) {
    PaintPicture(area);
    PaintCornerPieces(area);
}

void FramePainter::PaintCornerPieces() { PaintCornerPieces(control_.Layout.ControlRect); }

void FramePainter::PaintCornerPieces(const LayoutRect& area) {
    const HDC surface = host_.hDC();
    for (const auto& [source, to] : FrameCorners(control_.Layout, control_.SkinRects)) {
        if (IsEmpty(Intersection(to, area))) continue;
        surfaces_.SkinDC.Draw(surface, source.Left, source.Top, source.Width, source.Height, to.Left, to.Top,
                              true);
    }
}

// A pixel of the picture stands where the same pixel of the container's background stands. One of the key colour shows
// what lies beneath.
void FramePainter::PaintPicture(const LayoutRect& area) {
    const SIZE size = BitmapSizeOf(surfaces_.Picture.Get());
    if (size.cx < 1 || size.cy < 1) return;
    const Checked offX = TwipsToPixels(host_.Left(), host_.TwipsPerPixelX());
    const Checked offY = TwipsToPixels(host_.Top(), host_.TwipsPerPixelY());
    const Checked width = size.cx, height = size.cy;
    const LayoutRect picture = LayoutRect::FromEdges(0 - offX, 0 - offY, width - offX, height - offY);
    const LayoutRect page = PictureRect(control_.Layout, control_.SkinRects);
    const LayoutRect to = Intersection(Intersection(picture, page), area);
    if (IsEmpty(to)) return;
    surfaces_.PictureSurface.Draw(host_.hDC(), offX + to.Left, offY + to.Top, to.Width, to.Height, to.Left,
                                  to.Top, true);
}

void FramePainter::PaintUnderlay(const LayoutRect& area) {
    const LayoutRect inside = Intersection(area, control_.Layout.ControlRect);
    if (IsEmpty(inside)) return;
    const Clip clip(host_.hDC(), inside);
    PaintBackground(inside);
    PaintFrame(inside);
    PaintPictureAndCorners(inside);
}

} // namespace vantik

// Paints the enlarged bitmap with the rectangles over it.
#pragma once

#include <vector>

#include "platform/mDeclares.h"
#include "tools/skinview/model/Grip.h"
#include "tools/skinview/model/Labels.h"
#include "tools/skinview/model/PixelImage.h"

namespace vantik {

struct BitmapScene {
    const PixelImage& Image;
    const std::vector<Piece>& Pieces;
    ZoomView View;
    std::int32_t Chosen = NoPiece, Pointed = NoPiece;
    HFONT Font;
};

class BitmapPainter {
public:
    BitmapPainter(HDC dc, const BitmapScene& scene) : dc_(dc), scene_(scene) {}

    void Paint(const RECT& client);

private:
    void PaintImage(const RECT& client);
    void PaintGrid(const RECT& client);
    void PaintOutlines();
    void PaintLabels();
    void PaintHighlight(std::int32_t piece, COLORREF colour);
    void PaintHandles(const PixelBox& box);
    void PaintLabel(std::int32_t piece, const Label& label, bool isStrong);
    ViewSize SizeOf(const std::wstring& text) const;
    LabelWish WishOf(const Piece& piece) const;

    HDC dc_;
    const BitmapScene& scene_;
};

} // namespace vantik

#include "render/BarPainter.h"

#include "gfx/Clip.h"
#include "render/BarGeometry.h"
#include "render/CaptionPainter.h"

namespace vantik {

namespace {

void DrawFill(pcMemDC& skin, HDC surface, std::int32_t side, const SkinRect& from, const LayoutRect& to) {
    const auto draw = [&](auto operation) {
        (skin.*operation)(surface, to.Left, to.Top, to.Width, to.Height, from.Left, from.Top, from.Width,
                          from.Height);
    };
    switch (side) {
    case Windowtop: return draw(&pcMemDC::StretchDraw);
    case WindowBottom: return draw(&pcMemDC::Stretch180Draw);
    case WindowLeft: return draw(&pcMemDC::Stretch90Draw);
    case WindowRight: return draw(&pcMemDC::Stretch270Draw);
    default: return;
    }
}

void DrawEnd(pcMemDC& skin, HDC surface, std::int32_t side, const SkinRect& from, const LayoutRect& to) {
    const auto draw = [&](auto operation) {
        (skin.*operation)(surface, from.Left, from.Top, from.Width, from.Height, to.Left, to.Top, true);
    };
    switch (side) {
    case Windowtop: return draw(&pcMemDC::Draw);
    case WindowBottom: return draw(&pcMemDC::Plg180Draw);
    case WindowLeft: return draw(&pcMemDC::Plg90Draw);
    case WindowRight: return draw(&pcMemDC::Plg270Draw);
    default: return;
    }
}

} // namespace

void BarPainter::DrawBar(std::int16_t index, std::uint8_t state) {
    CheckBar(control_, index, state);
    const Clip row(host_.hDC(), RowRect(control_));
    DrawBarBackground(index, state);
    CaptionPainter(host_, control_, surfaces_, decorations_).DrawCaption(index, state);
    decorations_.DrawTabIcon(index, state);
    std::uint8_t closeState = 0, closeFlag = 0; // the routine writes to its arguments
    decorations_.DrawCloseButton(index, closeState, closeFlag);
}

void BarPainter::DrawBarBackground(std::int16_t index, std::uint8_t state) {
    const std::int32_t slot = SlotOf(control_, index), side = control_.Properties.TabPos;
    const HDC surface = host_.hDC();
    for (const BarPiece& piece : PiecesOf(control_, index, state)) {
        const LayoutRect to = PartRect(control_, slot, piece.U, piece.V, piece.Length, piece.Thickness);
        if (piece.IsFill)
            DrawFill(surfaces_.SkinDC, surface, side, piece.Source, to);
        else
            DrawEnd(surfaces_.SkinDC, surface, side, piece.Source, to);
    }
}

} // namespace vantik

#include "BitmapPainter.h"

#include <algorithm>

#include "gfx/Handles.h"
#include "host/HostError.h"
#include "tools/skinview/model/Light.h"
#include "tools/skinview/model/PieceTexts.h"

namespace vantik {

namespace {

constexpr COLORREF Ground = RGB(0x3C, 0x41, 0x48), GridLine = RGB(0x80, 0x80, 0x80);
constexpr COLORREF ChosenColour = RGB(0x00, 0x67, 0xC0);
constexpr COLORREF LabelGround = RGB(0xFF, 0xFF, 0xFF), LabelInk = RGB(0x1B, 0x1F, 0x24),
                   LabelEdge = RGB(0x8A, 0x92, 0x9C);
constexpr COLORREF PointedColour = RGB(LightColour >> 16 & 0xFF, LightColour >> 8 & 0xFF, LightColour & 0xFF);
constexpr int GridZoom = 10; // from which on the pixels are told apart by lines
constexpr int LabelGap = 3;

RECT ToRect(const PixelBox& box) noexcept { return {box.Left, box.Top, box.Right, box.Bottom}; }

RECT Grown(const PixelBox& box, int by) noexcept {
    return {box.Left - by, box.Top - by, box.Right + by, box.Bottom + by};
}

void FillWith(HDC dc, const RECT& rect, COLORREF colour) noexcept {
    SetDCBrushColor(dc, colour);
    FillRect(dc, &rect, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void Frame(HDC dc, const RECT& rect, COLORREF colour) noexcept {
    SetDCBrushColor(dc, colour);
    FrameRect(dc, &rect, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

std::wstring TitleText(std::int32_t piece) { return FromUtf8(TitleOf(piece)); }

} // namespace

void BitmapPainter::Paint(const RECT& client) {
    FillWith(dc_, client, Ground);
    SelectObject(dc_, scene_.Font);
    PaintImage(client);
    if (scene_.View.Zoom >= GridZoom) PaintGrid(client);
    PaintOutlines();
    PaintLabels();
    if (scene_.Chosen != NoPiece) PaintHighlight(scene_.Chosen, ChosenColour);
    if (scene_.Pointed != NoPiece && scene_.Pointed != scene_.Chosen)
        PaintHighlight(scene_.Pointed, PointedColour);
}

// Only the pixels that are seen: far enlarged, all of them would be a picture of many thousand points.
void BitmapPainter::PaintImage(const RECT& client) {
    const PixelImage& image = scene_.Image;
    const ViewPoint first = scene_.View.ToPixel({0, 0}),
                    last = scene_.View.ToPixel({client.right, client.bottom});
    const int left = std::clamp(first.X, 0, image.Width()), top = std::clamp(first.Y, 0, image.Height());
    const int width = std::clamp(last.X + 1, left, image.Width()) - left;
    const int height = std::clamp(last.Y + 1, top, image.Height()) - top;
    if (width == 0 || height == 0) return;
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = image.Width();
    info.bmiHeader.biHeight = -height; // top row first; the rows above are left out
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    const RECT target = ToRect(scene_.View.ToView(PixelBox{left, top, left + width, top + height}));
    SetStretchBltMode(dc_, COLORONCOLOR);
    StretchDIBits(dc_, target.left, target.top, target.right - target.left, target.bottom - target.top, left,
                  0, width, height, image.Data() + static_cast<std::ptrdiff_t>(top) * image.Width(), &info,
                  DIB_RGB_COLORS, SRCCOPY);
}

void BitmapPainter::PaintGrid(const RECT& client) {
    const PixelBox all = scene_.View.ToView(scene_.Image.All());
    const int left = std::max<int>(all.Left, client.left), right = std::min<int>(all.Right, client.right);
    const int top = std::max<int>(all.Top, client.top), bottom = std::min<int>(all.Bottom, client.bottom);
    for (int x = all.Left; x <= all.Right; x += scene_.View.Zoom)
        if (x >= left && x <= right) FillWith(dc_, {x, top, x + 1, bottom}, GridLine);
    for (int y = all.Top; y <= all.Bottom; y += scene_.View.Zoom)
        if (y >= top && y <= bottom) FillWith(dc_, {left, y, right, y + 1}, GridLine);
}

// White dots on black: seen on every colour.
void BitmapPainter::PaintOutlines() {
    const Owned<HPEN, ObjectReleaser> dots(CreatePen(PS_DOT, 1, RGB(255, 255, 255)));
    SelectObject(dc_, GetStockObject(NULL_BRUSH));
    const HGDIOBJ old = SelectObject(dc_, dots.Get());
    SetBkMode(dc_, OPAQUE);
    SetBkColor(dc_, RGB(0, 0, 0));
    for (const Piece& piece : scene_.Pieces) {
        const PixelBox box = scene_.View.ToView(piece.Box());
        Rectangle(dc_, box.Left, box.Top, box.Right, box.Bottom);
    }
    SelectObject(dc_, old);
}

ViewSize BitmapPainter::SizeOf(const std::wstring& text) const {
    SIZE size = {};
    GetTextExtentPoint32W(dc_, text.data(), static_cast<int>(text.size()), &size);
    return {size.cx + 2 * LabelGap, size.cy};
}

LabelWish BitmapPainter::WishOf(const Piece& piece) const {
    return {scene_.View.ToView(piece.Box()), SizeOf(TitleText(piece.Index)),
            SizeOf(std::to_wstring(piece.Index))};
}

void BitmapPainter::PaintLabels() {
    std::vector<LabelWish> wishes;
    for (const Piece& piece : scene_.Pieces) wishes.push_back(WishOf(piece));
    const auto labels = PlaceLabels(wishes);
    for (std::size_t i = 0; i < labels.size(); ++i) PaintLabel(scene_.Pieces[i].Index, labels[i], false);
}

void BitmapPainter::PaintLabel(std::int32_t piece, const Label& label, bool isStrong) {
    if (label.Kind == Label::Kind::None) return;
    const std::wstring text = label.Kind == Label::Kind::Full ? TitleText(piece) : std::to_wstring(piece);
    if (!isStrong) {
        FillWith(dc_, ToRect(label.Place), LabelGround);
        Frame(dc_, ToRect(label.Place), LabelEdge);
        SetTextColor(dc_, LabelInk);
    } else {
        SetTextColor(dc_, RGB(255, 255, 255));
    }
    SetBkMode(dc_, TRANSPARENT);
    TextOutW(dc_, label.Place.Left + LabelGap, label.Place.Top, text.data(), static_cast<int>(text.size()));
}

void BitmapPainter::PaintHandles(const PixelBox& box) {
    constexpr int Half = 3;
    for (const int x : {box.Left, (box.Left + box.Right) / 2, box.Right}) {
        for (const int y : {box.Top, (box.Top + box.Bottom) / 2, box.Bottom}) {
            const bool isMiddle = x != box.Left && x != box.Right && y != box.Top && y != box.Bottom;
            if (isMiddle) continue;
            const RECT handle = {x - Half, y - Half, x + Half, y + Half};
            FillWith(dc_, handle, RGB(255, 255, 255));
            Frame(dc_, handle, ChosenColour);
        }
    }
}

// A frame around the rectangle and its whole name above it, whatever lies there.
void BitmapPainter::PaintHighlight(std::int32_t index, COLORREF colour) {
    const Piece* piece = FindPiece(scene_.Pieces, index);
    if (!piece) return;
    const PixelBox box = scene_.View.ToView(piece->Box());
    Frame(dc_, Grown(box, 2), RGB(255, 255, 255));
    Frame(dc_, Grown(box, 1), colour);
    Frame(dc_, ToRect(box), colour);
    if (index == scene_.Chosen) PaintHandles(box);
    const ViewSize size = SizeOf(TitleText(index));
    const int top = box.Top - size.Height - 5 >= 0 ? box.Top - size.Height - 5 : box.Bottom + 5;
    const int left = std::max(box.Left - 2, 0);
    const PixelBox place = {left, top, left + size.Width, top + size.Height};
    FillWith(dc_, ToRect(place), colour);
    PaintLabel(index, {Label::Kind::Full, place}, true);
}

} // namespace vantik

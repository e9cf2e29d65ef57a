#include "render/BarGeometry.h"

#include <algorithm>

#include "base/Checked.h"
#include "base/ErrorText.h"
#include "base/Rounding.h"

namespace vantik {

namespace {

// A piece stands on the strip's inner edge as the active look's piece does, so a taller look rises above the others.
BarPiece PieceAt(const SkinRects& rects, std::int32_t family, std::uint8_t state, Checked u) {
    const SkinRect& source = rects[family + state];
    const Checked v = Checked(rects[family + BarActive].Height) - source.Height;
    return {source, u, v, source.Width, source.Height, false};
}

BarPiece FillFrom(const SkinRects& rects, std::uint8_t state, Checked from, Checked to) {
    BarPiece fill = PieceAt(rects, FillPic0, state, from);
    fill.Length = to - from;
    fill.IsFill = true;
    return fill;
}

BarPieces WithBothEnds(const SkinRects& rects, std::uint8_t state, Checked length) {
    const BarPiece leading = PieceAt(rects, LeftPic0, state, 0);
    const Checked trailingEdge = length - rects[RightPic0 + state].Width;
    const BarPiece trailing = PieceAt(rects, RightPic0, state, trailingEdge);
    BarPieces pieces;
    pieces.Add(FillFrom(rects, state, leading.Length, trailingEdge));
    pieces.Add(leading);
    pieces.Add(trailing);
    return pieces;
}

// Bars share separators; only the row's ends carry end pieces, and TabToTab leaves no gap.
BarPieces WithSharedEdges(const SkinRects& rects, std::uint8_t state, std::int16_t width, bool first,
                          bool last) {
    const std::int32_t trailingFamily = last ? RightPic0 : Line0;
    const Checked trailingEdge = Checked(width) - rects[trailingFamily + state].Width;
    const BarPiece trailing = PieceAt(rects, trailingFamily, state, trailingEdge);
    const Checked fillStart = first ? rects[LeftPic0 + state].Width : 0;
    BarPieces pieces;
    pieces.Add(FillFrom(rects, state, fillStart, trailingEdge));
    if (first) pieces.Add(PieceAt(rects, LeftPic0, state, 0));
    pieces.Add(trailing);
    return pieces;
}

// The widest of a piece's three looks.
std::int32_t WidestOf(const SkinRects& rects, std::int32_t family) {
    return std::max({rects[family].Width, rects[family + 1].Width, rects[family + 2].Width});
}

// How far before its own bar a trailing piece may begin.
Checked ReachBefore(const ControlState& control) {
    const PropertyValues& p = control.Properties;
    const Checked length = p.TabBorder == True ? Checked(p.BarWidth) - p.TabToTab : Checked(p.BarWidth);
    const SkinRects& rects = control.SkinRects;
    const std::int32_t widest = std::max(WidestOf(rects, RightPic0), WidestOf(rects, Line0));
    return std::max<std::int32_t>(widest - length, 0);
}

Checked ThicknessOf(const ControlState& control) noexcept {
    const LayoutRect& strip = control.Layout.BarStripRect;
    return control.Layout.IsHorizontal ? strip.Height : strip.Width;
}

constexpr std::int32_t PlainPiece = 1 << 12; // the extent of a piece
constexpr std::int32_t PlainBar = 1 << 13;   // with the pieces at its ends still a 16-bit number
constexpr std::int32_t PlainStrip = 1 << 29; // leaves room for 2^15 such bars behind its edge

constexpr bool IsWithin(std::int32_t value, std::int32_t most) noexcept {
    return -most <= value && value <= most;
}

bool ArePiecesPlain(const SkinRects& rects) {
    for (std::int32_t i = FillPic0; i < RLeftTopPic; ++i)
        if (!IsWithin(rects[i].Width, PlainPiece) || !IsWithin(rects[i].Height, PlainPiece)) return false;
    return true;
}

bool IsPlain(const LayoutRect& strip) noexcept {
    return IsWithin(strip.Left, PlainStrip) && IsWithin(strip.Top, PlainStrip) &&
           IsWithin(strip.Right, PlainStrip) && IsWithin(strip.Bottom, PlainStrip) &&
           IsWithin(strip.Width, PlainStrip) && IsWithin(strip.Height, PlainStrip);
}

void CheckExtent(std::int32_t pixels) {
    if (!std::in_range<std::int16_t>(pixels))
        Raise(RunTimeErrorNumber::Overflow, u"A piece of a bar cannot have ", pixels, u" pixels");
}

bool HaveBarsRecords(const ControlState& control) noexcept {
    const LayoutCache& layout = control.Layout;
    return layout.FirstVisibleTab >= 0 &&
           layout.FirstVisibleTab + layout.VisibleBarCount <= control.Tabs.UpperBound() + 1;
}

} // namespace

bool AreBarsPlain(const ControlState& control) noexcept {
    const PropertyValues& p = control.Properties;
    return HaveBarsRecords(control) && IsWithin(p.BarWidth, PlainBar) && IsWithin(p.TabToTab, PlainBar) &&
           IsPlain(control.Layout.BarStripRect) && ArePiecesPlain(control.SkinRects);
}

void BarPieces::Add(const BarPiece& piece) {
    if (piece.Length > 0 && piece.Thickness > 0) pieces_[count_++] = piece;
}

BarPieces PiecesOf(const ControlState& control, std::int16_t index, std::uint8_t state) {
    const PropertyValues& p = control.Properties;
    if (p.TabBorder == True) return WithBothEnds(control.SkinRects, state, Checked(p.BarWidth) - p.TabToTab);
    if (p.TabBorder != False) return {};
    const std::int32_t slot = SlotOf(control, index);
    const bool last = slot == control.Layout.VisibleBarCount - 1;
    return WithSharedEdges(control.SkinRects, state, p.BarWidth, slot == 0, last);
}

void CheckBar(const ControlState& control, std::int16_t index, std::uint8_t state) {
    static_cast<void>(control.Tabs(index));
    const std::int32_t slot = SlotOf(control, index);
    static_cast<void>(RowRect(control));
    static_cast<void>(BarRect(control, slot));
    for (const BarPiece& piece : PiecesOf(control, index, state)) {
        static_cast<void>(PartRect(control, slot, piece.U, piece.V, piece.Length, piece.Thickness));
        if (control.Properties.TabPos == Windowtop) continue;
        CheckExtent(piece.Length);
        CheckExtent(piece.Thickness);
    }
}

std::int32_t SlotOf(const ControlState& control, std::int16_t index) {
    return Subtract16(index, control.Layout.FirstVisibleTab);
}

bool IsVisibleSlot(const ControlState& control, std::int32_t slot) noexcept {
    return slot >= 0 && slot < control.Layout.VisibleBarCount;
}

LayoutRect SlotRect(const ControlState& control, std::int32_t slot) {
    return PartRect(control, slot, 0, 0, control.Properties.BarWidth, ThicknessOf(control));
}

LayoutRect BarRect(const ControlState& control, std::int32_t slot) {
    const PropertyValues& p = control.Properties;
    return PartRect(control, slot, 0, 0, Checked(p.BarWidth) - p.TabToTab, ThicknessOf(control));
}

std::int32_t Overhang(const ControlState& control) noexcept {
    return std::max(-std::int32_t{control.Properties.TabToTab}, 0);
}

LayoutRect RowRect(const ControlState& control) {
    const LayoutRect& strip = control.Layout.BarStripRect;
    const bool horizontal = control.Layout.IsHorizontal;
    const std::int32_t beyond = Overhang(control);
    return LayoutRect::FromEdges(strip.Left, strip.Top, Checked(strip.Right) + (horizontal ? beyond : 0),
                                 Checked(strip.Bottom) + (horizontal ? 0 : beyond));
}

LayoutRect BehindStripRect(const ControlState& control) {
    const LayoutRect &strip = control.Layout.BarStripRect, &all = control.Layout.ControlRect;
    return control.Layout.IsHorizontal
               ? LayoutRect::FromEdges(strip.Right, strip.Top, all.Right, strip.Bottom)
               : LayoutRect::FromEdges(strip.Left, strip.Bottom, strip.Right, all.Bottom);
}

bool DoBarsOverlap(const ControlState& control) {
    return Overhang(control) > 0 || ReachBefore(control) > 0 ||
           WidestOf(control.SkinRects, LeftPic0) > control.Properties.BarWidth;
}

LayoutRect RoomRect(const ControlState& control, std::int32_t slot) {
    const Checked length = Checked(control.Properties.BarWidth) + Overhang(control);
    return PartRect(control, slot, 0, 0, length, ThicknessOf(control));
}

// Of all later bars the next one's trailing piece begins first.
LayoutRect UncoveredRect(const ControlState& control, std::int32_t slot) {
    if (slot >= control.Layout.VisibleBarCount - 1) return RoomRect(control, slot);
    const Checked length = control.Properties.BarWidth - ReachBefore(control);
    return PartRect(control, slot, 0, 0, length, ThicknessOf(control));
}

LayoutRect PartRect(const ControlState& control, std::int32_t slot, std::int32_t u, std::int32_t v,
                    std::int32_t length, std::int32_t thickness) {
    const LayoutRect& strip = control.Layout.BarStripRect;
    const Checked start = Checked(slot) * control.Properties.BarWidth + u;
    const Checked x = strip.Left + start, y = strip.Top + start; // whichever runs along the strip
    const Checked fromNear = v, fromFar = Checked(v) + thickness;
    switch (control.Properties.TabPos) {
    case Windowtop: return LayoutRect::FromEdges(x, strip.Top + fromNear, x + length, strip.Top + fromFar);
    case WindowBottom:
        return LayoutRect::FromEdges(x, strip.Bottom - fromFar, x + length, strip.Bottom - fromNear);
    case WindowLeft: return LayoutRect::FromEdges(strip.Left + fromNear, y, strip.Left + fromFar, y + length);
    case WindowRight:
        return LayoutRect::FromEdges(strip.Right - fromFar, y, strip.Right - fromNear, y + length);
    default: return {};
    }
}

LayoutRect FillBand(const ControlState& control, std::int32_t slot, std::uint8_t state) {
    const BarPiece fill = FillFrom(control.SkinRects, state, 0, control.Properties.BarWidth);
    return PartRect(control, slot, fill.U, fill.V, fill.Length, fill.Thickness);
}

bool PointInRect(float x, float y, const LayoutRect& rect) noexcept {
    // Doubles hold every edge and every coordinate exactly.
    const double px = x, py = y;
    return rect.Left <= px && px <= rect.Right && rect.Top <= py && py <= rect.Bottom;
}

bool IsPixelOf(const LayoutRect& rect, std::int32_t x, std::int32_t y) noexcept {
    return rect.Left <= x && x < rect.Right && rect.Top <= y && y < rect.Bottom;
}

std::int32_t BarSlotAt(float x, float y, const ControlState& control) {
    const std::int32_t along = RoundHalfToEven(control.Layout.IsHorizontal ? x : y);
    if (control.Properties.BarWidth == 0) Raise(RunTimeErrorNumber::DivisionByZero, u"BarWidth is 0");
    // In 64 bits, since -2^31 / -1 does not fit 32.
    return Narrow<std::int32_t>(std::int64_t{along} / control.Properties.BarWidth);
}

} // namespace vantik

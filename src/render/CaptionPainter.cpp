#include "render/CaptionPainter.h"

#include <algorithm>

#include "gfx/Clip.h"
#include "gfx/InkBoard.h"
#include "platform/Shortage.h"
#include "render/BarGeometry.h"
#include "render/CaptionFont.h"
#include "render/DecorationGeometry.h"
#include "render/FrameGeometry.h"
#include "render/ShortenCaption.h"

namespace vantik {

namespace {

constexpr LONG HeavyWeight = 1000, NormalWeight = 400;

const SkinIcon* CloseButtonOf(const ControlState& control) noexcept {
    return control.Properties.DelButton ? control.SkinIcons.At(control.SkinIcons.DeleteButtonIcon) : nullptr;
}

// The larger part of the bar beside the close button. The button's Right and Bottom are its last pixels.
LayoutRect RoomBeside(const LayoutRect& bar, const LayoutRect& button, bool horizontal) {
    LayoutRect before = bar, after = bar;
    if (horizontal) {
        before = LayoutRect::FromEdges(bar.Left, bar.Top, button.Left, bar.Bottom);
        after = LayoutRect::FromEdges(Checked(button.Right) + 1, bar.Top, bar.Right, bar.Bottom);
        return before.Width >= after.Width ? before : after;
    }
    before = LayoutRect::FromEdges(bar.Left, bar.Top, bar.Right, button.Top);
    after = LayoutRect::FromEdges(bar.Left, Checked(button.Bottom) + 1, bar.Right, bar.Bottom);
    return before.Height >= after.Height ? before : after;
}

RECT ToRect(const LayoutRect& rect) noexcept { return {rect.Left, rect.Top, rect.Right, rect.Bottom}; }

SIZE ExtentOf(HDC surface, const std::u16string& text) noexcept {
    SIZE extent = {};
    GetTextExtentPoint32W(surface, AsWide(text), static_cast<int>(text.size()), &extent);
    return extent;
}

constexpr auto GreyText = static_cast<std::int32_t>(0x80000000 | COLOR_GRAYTEXT);

// A number that is no OLE colour is written in black.
COLORREF Translated(std::int32_t colour) noexcept {
    COLORREF translated = 0;
    OleTranslateColor(static_cast<OLE_COLOR>(colour), nullptr, &translated);
    return translated;
}

// What is not written into the turned font's record: its height, direction and weight.
void TakeFace(LOGFONTW& record, HFONT font) noexcept {
    LOGFONTW face = {};
    if (!font || !GetObjectW(font, sizeof face, &face)) return;
    record.lfItalic = face.lfItalic;
    record.lfUnderline = face.lfUnderline;
    record.lfStrikeOut = face.lfStrikeOut;
    record.lfCharSet = face.lfCharSet;
    std::copy(std::begin(face.lfFaceName), std::end(face.lfFaceName), std::begin(record.lfFaceName));
}

} // namespace

CaptionPainter::Place CaptionPainter::PlaceOf(std::int32_t slot) const {
    const LayoutRect bar = Intersection(BarRect(control_, slot), SlotRect(control_, slot));
    if (!CloseButtonOf(control_)) return {bar, bar};
    const LayoutRect button = CloseButtonRect(control_, slot);
    const LayoutRect covered =
        LayoutRect::FromEdges(button.Left, button.Top, Checked(button.Right) + 1, Checked(button.Bottom) + 1);
    if (IsEmpty(Intersection(bar, covered))) return {bar, bar};
    return {bar, Intersection(RoomBeside(bar, button, control_.Layout.IsHorizontal != False), bar)};
}

void CaptionPainter::DrawCaption(std::int16_t index, std::uint8_t state) {
    const Place place = PlaceOf(SlotOf(control_, index));
    if (IsEmpty(place.Room)) return;
    const HDC surface = host_.hDC();
    const SavedDC saved(surface);
    TakeFont(surface);
    SetColours(surface, KindOf(index));
    surfaces_.ShortCaption = ShortenCaption(control_.Tabs(index).Caption, Budget(surface, index, state));
    Write({surface, surfaces_.ShortCaption}, place, index, state);
}

namespace {

// Whatever of the text is cut off lies in there, or begins to.
LayoutRect AreaAround(const LayoutRect& bar, const PropertyValues& p, SIZE text) {
    const Checked x = p.CaptionXjust, y = p.CaptionYjust, margin = Checked(text.cx) + Checked(text.cy);
    const auto least = [](std::int32_t shift) { return std::min(shift, 0); };
    const auto most = [](std::int32_t shift) { return std::max(shift, 0); };
    return LayoutRect::FromEdges(bar.Left + least(x) - margin, bar.Top + least(y) - margin,
                                 bar.Right + most(x) + margin, bar.Bottom + most(y) + margin);
}

} // namespace

// It is if it looks the same where nothing would cut it off.
bool CaptionPainter::IsWhole(std::int16_t index, std::uint8_t state) {
    const std::u16string& caption = control_.Tabs(index).Caption;
    const Place place = PlaceOf(SlotOf(control_, index));
    if (caption.empty()) return true;
    if (IsEmpty(place.Room)) return false;
    InkBoard board;
    const SavedDC saved(board.DC());
    TakeFont(board.DC());
    if (ShortenCaption(caption, Budget(board.DC(), index, state)) != caption) return false;
    board.Cover(AreaAround(place.Bar, control_.Properties, ExtentOf(board.DC(), caption)));
    Write({board.DC(), caption, true}, place, index, state);
    const auto free = board.Take();
    const Clip row(board.DC(), Intersection(RowRect(control_), control_.Layout.ControlRect));
    Write({board.DC(), caption}, place, index, state);
    return board.Take() == free;
}

void CaptionPainter::TakeFont(HDC surface) const noexcept {
    if (const HFONT font = HandleOf(surfaces_.Font.Get())) SelectObject(surface, font);
    SetTextAlign(surface, TA_LEFT | TA_TOP | TA_NOUPDATECP);
}

void CaptionPainter::Write(const Writing& writing, const Place& place, std::int16_t index,
                           std::uint8_t state) {
    if (writing.Text.empty()) return;
    if (control_.Layout.IsHorizontal)
        DrawHorizontal(writing, place);
    else
        DrawVertical(writing, place, index, state);
}

// The letters "A" for which there is room between the leading end of the bar with its icon and whatever comes first: its
// trailing end with its close button, or the next bar.
std::int32_t CaptionPainter::Budget(HDC surface, std::int16_t index, std::uint8_t state) const {
    const PropertyValues& p = control_.Properties;
    const SkinIcon* closeButton = CloseButtonOf(control_);
    const std::int32_t button = closeButton ? std::max<std::int32_t>(closeButton->Width, 0) : 0;
    const Checked start =
        Checked(control_.SkinRects[LeftPic0 + state].Width) + decorations_.TabIconWidth(index);
    const Checked end =
        Checked(p.BarWidth) - p.TabToTab - control_.SkinRects[RightPic0 + state].Width - button;
    const std::int32_t unit = std::max<std::int32_t>(ExtentOf(surface, u"A").cx, 1);
    return (std::min<std::int32_t>(end, p.BarWidth) - start) / unit;
}

CaptionKind CaptionPainter::KindOf(std::int16_t index) const {
    if (!control_.Tabs(index).Enable) return CaptionKind::Disabled;
    return index == control_.Properties.ActiveTab ? CaptionKind::Active : CaptionKind::Normal;
}

void CaptionPainter::SetColours(HDC surface, CaptionKind kind) const {
    const PropertyValues& p = control_.Properties;
    const std::int32_t text = kind == CaptionKind::Disabled ? GreyText
                              : kind == CaptionKind::Active ? p.CaptionColor1
                                                            : p.CaptionColor0;
    const CaptionColours colours = host_.ColoursOf({text, std::nullopt}, kind);
    SetTextColor(surface, Translated(colours.Text));
    SetBkMode(surface, colours.Ground ? OPAQUE : TRANSPARENT);
    if (colours.Ground) SetBkColor(surface, Translated(*colours.Ground));
}

namespace {

// How far from the bar's leading end a caption begins.
Checked LeadOf(std::int32_t position, Checked barLength, std::int32_t length) {
    if (position == AlignMiddle) return (barLength - length) / 2;
    return position == AlignRight ? barLength - length : Checked(0);
}

// What CaptionPos says to DrawText, less the only flag that would write into the text: it changes no pixel. A second
// ellipsis, behind the one in a path, is left out where even the first leaves the text too long: not every system
// survives looking for a place for it.
UINT FormatOf(HDC surface, const std::u16string& text, RECT area, std::int32_t position) noexcept {
    constexpr UINT AtEnd = DT_END_ELLIPSIS | DT_WORD_ELLIPSIS;
    const UINT format = static_cast<UINT>(position) & ~UINT{DT_MODIFYSTRING};
    if (!(format & DT_PATH_ELLIPSIS) || !(format & AtEnd)) return format;
    const LONG room = area.right - area.left;
    DrawTextW(surface, AsWide(text), static_cast<int>(text.size()), &area, (format & ~AtEnd) | DT_CALCRECT);
    return area.right - area.left > room ? format & ~AtEnd : format;
}

// As if there were room for everything.
UINT FreeFormat(std::int32_t position) noexcept {
    constexpr UINT Limits = DT_MODIFYSTRING | DT_PATH_ELLIPSIS | DT_END_ELLIPSIS | DT_WORD_ELLIPSIS;
    return (static_cast<UINT>(position) & ~Limits) | DT_NOCLIP;
}

} // namespace

void CaptionPainter::DrawHorizontal(const Writing& writing, const Place& place) {
    const auto& [surface, text, isFree] = writing;
    const auto& [bar, room] = place;
    const PropertyValues& p = control_.Properties;
    Checked shift = p.CaptionXjust;
    if (room != bar) {
        const std::int32_t length = ExtentOf(surface, text).cx;
        const Checked first = bar.Left + LeadOf(p.CaptionPos, bar.Width, length);
        const Checked aside = std::min<std::int32_t>(0, room.Right - (first + length));
        shift = shift + std::max<std::int32_t>(aside, room.Left - first);
    }
    const LayoutRect moved = LayoutRect::FromEdges(bar.Left + shift, Checked(bar.Top) + p.CaptionYjust,
                                                   bar.Right + shift, Checked(bar.Bottom) + p.CaptionYjust);
    RECT rect = ToRect(moved);
    const UINT format = isFree ? FreeFormat(p.CaptionPos) : FormatOf(surface, text, rect, p.CaptionPos);
    if (moved != room && !isFree)
        TellShortageUnless(IntersectClipRect(surface, room.Left, room.Top, room.Right, room.Bottom) != ERROR);
    DrawTextW(surface, AsWide(text), static_cast<int>(text.size()), &rect, format);
}

namespace {

// Not every system draws it behind turned text by itself.
void DrawGround(HDC surface, const LayoutRect& area) noexcept {
    if (GetBkMode(surface) != OPAQUE || IsEmpty(area)) return;
    const RECT rect = ToRect(area);
    ExtTextOutW(surface, 0, 0, ETO_OPAQUE, &rect, nullptr, 0, nullptr);
}

} // namespace

OwnedFont CaptionPainter::MakeTurnedFont(bool heavy) {
    LOGFONTW& record = surfaces_.CaptionFont;
    TakeFace(record, HandleOf(surfaces_.Font.Get()));
    record.lfOrientation = record.lfEscapement;
    record.lfWeight = heavy ? HeavyWeight : NormalWeight;
    OwnedFont font(CreateFontIndirectW(&record));
    TellShortageUnless(font.Get());
    return font;
}

void CaptionPainter::DrawVertical(const Writing& writing, const Place& place, std::int16_t index,
                                  std::uint8_t state) {
    const auto& [surface, text, isFree] = writing;
    const auto& [bar, room] = place;
    const PropertyValues& p = control_.Properties;
    const OwnedFont font = MakeTurnedFont(index == p.ActiveTab);
    const Selection selection = Select(surface, font.Get());
    const SIZE extent = ExtentOf(surface, text);
    const std::int32_t length = extent.cx, height = extent.cy;

    const LayoutRect band = FillBand(control_, SlotOf(control_, index), state);
    const Checked x = Checked(band.Left) + (Checked(band.Width) - height) / 2 + p.CaptionXjust;
    Checked y = bar.Bottom - LeadOf(p.CaptionPos, bar.Height, length);
    if (room != bar) {
        const Checked aside = std::max<std::int32_t>(0, room.Top - (y - length));
        y = y + std::min<std::int32_t>(aside, room.Bottom - y);
    }
    y = y + p.CaptionYjust;
    DrawGround(surface, Intersection(LayoutRect::FromEdges(x, y - length, x + height, y), room));
    const RECT clip = ToRect(room);
    ExtTextOutW(surface, x, y, isFree ? 0U : UINT{ETO_CLIPPED}, &clip, AsWide(text),
                static_cast<UINT>(text.size()), nullptr);
}

} // namespace vantik

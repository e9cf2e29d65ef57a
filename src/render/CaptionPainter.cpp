#include "render/CaptionPainter.h"

#include <algorithm>

#include "gfx/Clip.h"
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
    if (const HFONT font = HandleOf(surfaces_.Font.Get())) SelectObject(surface, font);
    SetTextAlign(surface, TA_LEFT | TA_TOP | TA_NOUPDATECP);
    SetColours(surface, KindOf(index));
    surfaces_.ShortCaption = ShortenCaption(control_.Tabs(index).Caption, Budget(surface, index, state));
    if (surfaces_.ShortCaption.empty()) return;
    if (control_.Layout.IsHorizontal)
        DrawHorizontal(surface, place);
    else
        DrawVertical(surface, place, index, state);
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

} // namespace

void CaptionPainter::DrawHorizontal(HDC surface, const Place& place) {
    const auto& [bar, room] = place;
    const PropertyValues& p = control_.Properties;
    const std::u16string& text = surfaces_.ShortCaption;
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
    const UINT format = FormatOf(surface, text, rect, p.CaptionPos);
    if (moved != room)
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

void CaptionPainter::DrawVertical(HDC surface, const Place& place, std::int16_t index, std::uint8_t state) {
    const auto& [bar, room] = place;
    const PropertyValues& p = control_.Properties;
    const OwnedFont font = MakeTurnedFont(index == p.ActiveTab);
    const Selection selection = Select(surface, font.Get());
    const std::u16string& text = surfaces_.ShortCaption;
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
    ExtTextOutW(surface, x, y, ETO_CLIPPED, &clip, AsWide(text), static_cast<UINT>(text.size()), nullptr);
}

} // namespace vantik

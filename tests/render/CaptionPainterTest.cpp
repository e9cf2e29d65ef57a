#include "render/CaptionPainter.h"

#include <doctest/doctest.h>

#include <algorithm>

#include "gfx/Clip.h"
#include "render/BarGeometry.h"
#include "render/CaptionFont.h"
#include "render/DecorationGeometry.h"
#include "tests/RunTimeErrors.h"
#include "tests/render/LayoutText.h"
#include "tests/render/PaintedControl.h"

using namespace vantik;
using namespace vantik::test;

namespace {

constexpr std::int32_t Ink = 0x0000FF; // red, as a colour of the platform
constexpr std::uint32_t InkPixel = 0xFF0000;

// Two tabs of 100 pixels, the first of them active, with captions in red.
struct Captions : PaintedControl {
    explicit Captions(std::int32_t side = Windowtop) : PaintedControl(320, 320) {
        MakeSkin(2);
        AddTabs(2);
        State.Properties.TabPos = side;
        State.Properties.BarWidth = 100;
        State.Properties.ActiveTab = 0;
        State.Properties.CaptionColor0 = State.Properties.CaptionColor1 = Ink;
    }

    void Caption(std::int16_t tab, const std::u16string& text) {
        State.Tabs(tab).Caption = text;
        Driver.RepaintAll();
    }
    void GiveCloseButtons(std::int16_t extent) {
        SkinIcon& icon = State.SkinIcons.Append();
        icon.Width = icon.Height = extent;
        State.SkinIcons.DeleteButtonIcon = 0;
        State.Properties.DelButton = True;
    }
    bool Shows(std::uint32_t colour) const {
        const Pixels pixels = Read();
        return std::find(pixels.Values.begin(), pixels.Values.end(), colour) != pixels.Values.end();
    }

    // The bounds of what captions changed; everything else is as the loops paint it.
    LayoutRect Written() const {
        const Pixels with = Read(), without = Expected();
        LayoutRect r = {1000, 1000, 0, 0, 0, 0};
        for (std::int32_t y = 0; y < with.Height; ++y)
            for (std::int32_t x = 0; x < with.Width; ++x)
                if (with.At(x, y) != without.At(x, y))
                    r = {std::min(r.Left, x),
                         std::min(r.Top, y),
                         std::max(r.Right, x + 1),
                         std::max(r.Bottom, y + 1),
                         0,
                         0};
        return LayoutRect::FromEdges(r.Left, r.Top, r.Right, r.Bottom);
    }

    // What the surface has to show when the caption of tab 0 is written into the rectangle, clipped to the room.
    Pixels ExpectedText(const std::u16string& text, const LayoutRect& into, const LayoutRect& room,
                        UINT format) {
        TestSurface surface(Expected());
        const Clip clip(surface.DC(), room);
        SelectObject(surface.DC(), HandleOf(Surfaces.Font.Get()));
        SetBkMode(surface.DC(), TRANSPARENT);
        SetTextColor(surface.DC(), Ink);
        RECT rect = {into.Left, into.Top, into.Right, into.Bottom};
        std::u16string changeable = text + u"...."; // by one of the flags
        DrawTextW(surface.DC(), AsWide(changeable.data()), static_cast<int>(text.size()), &rect, format);
        return surface.Read();
    }
};

LayoutRect Moved(const LayoutRect& r, std::int32_t dx, std::int32_t dy) {
    return LayoutRect::FromEdges(r.Left + dx, r.Top + dy, r.Right + dx, r.Bottom + dy);
}

constexpr std::u16string_view Block = u"\u2588"; // all ink

} // namespace

TEST_CASE("a caption is written into its bar with CaptionPos as the format") {
    Captions c;
    for (const std::int32_t position : {AlignLeft, AlignMiddle, AlignRight}) {
        c.State.Properties.CaptionPos = position;
        c.Caption(0, u"Text");
        const LayoutRect bar = BarRect(c.State, 0);
        CHECK(Difference(c.Read(), c.ExpectedText(u"Text", bar, bar, static_cast<UINT>(position))) == "same");
    }
}

namespace {

// Every flag of the system's text call alone, with every other one, and with two that ask for ellipses.
std::vector<UINT> FlagsTogether() {
    std::vector<UINT> all;
    for (UINT first = 1; first <= DT_PREFIXONLY; first *= 2) {
        for (UINT second = first; second <= DT_PREFIXONLY; second *= 2) all.push_back(first | second);
        for (const UINT atEnd : {UINT{DT_END_ELLIPSIS}, UINT{DT_WORD_ELLIPSIS}})
            all.push_back(first | DT_PATH_ELLIPSIS | atEnd);
    }
    return all;
}

// Two ellipses in a path: there the system may not live to write the second one.
bool WantsTwoEllipses(UINT format) {
    return (format & DT_PATH_ELLIPSIS) && (format & (DT_END_ELLIPSIS | DT_WORD_ELLIPSIS));
}

} // namespace

TEST_CASE(
    "CaptionPos reaches the system's text call as its flags, whatever they are, and none harms the process") {
    for (const std::int16_t width : {std::int16_t{100}, std::int16_t{40}, std::int16_t{30}}) {
        for (const std::u16string& text : {std::u16string(u"c:\\WWW\\W.W"), std::u16string(u"&WWWWW\nWW"),
                                           std::u16string(u"W\tW\tWW&"), std::u16string(10, u'W')}) {
            Captions c;
            c.State.Properties.BarWidth = width;
            for (const UINT format : FlagsTogether()) {
                CAPTURE(width);
                CAPTURE(format);
                c.State.Properties.CaptionPos = static_cast<std::int32_t>(format);
                c.Caption(0, text);
                c.Driver.RedrawBar(0, BarActive);
                CHECK(c.State.Tabs(0).Caption == text);
                if (WantsTwoEllipses(format)) continue;
                const LayoutRect bar = BarRect(c.State, 0);
                const Pixels expected = c.ExpectedText(c.Surfaces.ShortCaption, bar, bar, format);
                const auto onBar = [&](const Pixels& all) {
                    return all.Cut(bar.Left, bar.Top, bar.Width, bar.Height);
                };
                CHECK(Difference(onBar(c.Read()), onBar(expected)) == "same");
            }
        }
    }
}

TEST_CASE(
    "the caption rectangle is the bar's, less TabToTab, moved by CaptionXjust and CaptionYjust and clipped "
    "to it") {
    Captions c;
    c.State.Properties.TabToTab = 7;
    c.State.Properties.TabBorder = True;
    for (const std::int16_t shift :
         {std::int16_t{-25}, std::int16_t{-4}, std::int16_t{5}, std::int16_t{80}}) {
        c.State.Properties.CaptionXjust = shift;
        c.State.Properties.CaptionYjust = static_cast<std::int16_t>(shift / 16);
        c.Caption(0, u"Text");
        const LayoutRect bar = BarRect(c.State, 0);
        CHECK(bar.Width == 93);
        CHECK(Difference(c.Read(), c.ExpectedText(u"Text", Moved(bar, shift, shift / 16), bar, DT_LEFT)) ==
              "same");
    }
}

TEST_CASE("a caption too long for its bar is shortened and kept") {
    Captions c;
    c.Caption(0, std::u16string(100, u'A'));
    c.Driver.RedrawBar(0, BarActive);
    const std::u16string& kept = c.Surfaces.ShortCaption;
    CHECK(c.State.Tabs(0).Caption.size() == 100);
    REQUIRE(kept.size() > 3);
    CHECK(kept.substr(kept.size() - 3) == u"...");
    CHECK(kept.size() < 20);
}

TEST_CASE("end pieces, icon and close button take their widths from the caption's budget") {
    Captions c;
    const auto units = [&] {
        c.State.Tabs(0).Caption = std::u16string(100, u'A');
        c.Driver.RepaintAll();
        c.Driver.RedrawBar(0, BarNormal);
        return static_cast<std::int32_t>(c.Surfaces.ShortCaption.size());
    };
    const Selection font = Select(c.Host.hDC(), HandleOf(c.Surfaces.Font.Get()));
    SIZE a;
    GetTextExtentPoint32W(c.Host.hDC(), L"A", 1, &a);
    const std::int32_t length = 100 - c.State.SkinRects[LeftPic0].Width - c.State.SkinRects[RightPic0].Width;
    CHECK(units() == length / a.cx);
    c.GiveCloseButtons(14);
    CHECK(units() == (length - 14) / a.cx);
    c.Decorations.IconWidth = 16;
    CHECK(units() == (length - 30) / a.cx);
    c.State.Properties.DelButton = False;
    CHECK(units() == (length - 16) / a.cx);
    c.State.Properties.TabToTab = 30; // the bar ends earlier
    CHECK(units() == (length - 46) / a.cx);
    c.Decorations.IconWidth = 0;
    c.AddTabs(1);
    c.State.Properties.TabToTab = -60; // the next bar begins before this one ends
    CHECK(units() == (100 - c.State.SkinRects[LeftPic0].Width) / a.cx);
    c.State.SkinIcons.Entries[0].Width = 90;
    c.State.Properties.DelButton = True;
    CHECK(units() == (length - 30) / a.cx);
}

namespace {

// How many of a hundred like characters are kept of a caption, dots not counted, and how many letters "A".
struct Kept {
    std::size_t Characters, Letters;
};
Kept KeptOf(char16_t character) {
    Captions c;
    c.AddTabs(1);
    const auto kept = [&](char16_t of) {
        c.Caption(0, std::u16string(100, of));
        return c.Surfaces.ShortCaption.size() - 3;
    };
    return {kept(character), kept(u'A')};
}

constexpr char16_t Chinese = u'\u4E2D', Accented = u'\u00E9';

} // namespace

TEST_CASE("where the code page has no double-byte characters, each counts as one letter") {
    for (const char16_t character : {Chinese, Accented, u'i'}) {
        const Kept kept = KeptOf(character);
        CHECK(kept.Characters == kept.Letters);
    }
}

TEST_SUITE("chinese") {
    TEST_CASE("what the code page writes in two bytes counts as two letters") {
        REQUIRE(GetACP() == 936);
        for (const char16_t character : {Chinese, Accented}) {
            const Kept kept = KeptOf(character);
            REQUIRE(kept.Letters > 3);
            CHECK(kept.Characters == kept.Letters / 2);
        }
        const Kept narrow = KeptOf(u'i');
        CHECK(narrow.Characters == narrow.Letters);
    }
}

TEST_CASE("a caption of overlapping bars stays in the part that the next bar leaves free") {
    for (const std::int32_t side : {WindowLeft, WindowRight, Windowtop, WindowBottom}) {
        for (const std::int32_t position : {AlignLeft, AlignMiddle, AlignRight}) {
            CAPTURE(side);
            CAPTURE(position);
            Captions c(side);
            c.State.Properties.TabBorder = True;
            c.State.Properties.TabToTab = -30;
            c.State.Properties.CaptionPos = position;
            c.Caption(0, u"HIH");
            const LayoutRect covered = c.Written();
            c.State.Properties.TabToTab = 0;
            c.Caption(0, u"HIH");
            CHECK(Text(covered) == Text(c.Written()));
        }
    }
}

TEST_CASE("no caption is written under or beyond a close button") {
    for (const std::int32_t side : {WindowLeft, WindowRight, Windowtop, WindowBottom}) {
        for (const std::int32_t position : {AlignLeft, AlignMiddle, AlignRight}) {
            Captions c(side);
            c.GiveCloseButtons(14);
            c.State.Properties.CaptionPos = position;
            c.State.Properties.CaptionXjust = c.State.Properties.CaptionYjust = 4;
            c.Caption(0, u"WWWWWWWWWWWWWWWW");
            std::int32_t widest = 0;
            for (std::int32_t s = 0; s < 3; ++s)
                widest = std::max(widest, c.State.SkinRects[RightPic0 + s].Width);
            const LayoutRect bar = BarRect(c.State, 0), written = c.Written();
            CAPTURE(side);
            CAPTURE(position);
            CHECK(written.Width > 0);
            if (c.State.Layout.IsHorizontal)
                CHECK(written.Right <= bar.Right - widest - 14);
            else
                CHECK(written.Bottom <= bar.Bottom - widest - 14);
        }
    }
}

TEST_CASE("a caption that keeps off the close button by itself is where it would be without one") {
    for (const std::int32_t side : {WindowLeft, WindowRight, Windowtop, WindowBottom}) {
        Captions c(side);
        c.State.Properties.CaptionPos = AlignMiddle;
        c.Caption(0, u"HIH");
        const LayoutRect without = c.Written();
        c.GiveCloseButtons(14);
        c.Caption(0, u"HIH");
        CHECK(Text(c.Written()) == Text(without));
    }
}

TEST_CASE("a caption that would come under the close button ends, or begins, beside it") {
    for (const std::int32_t side : {WindowLeft, WindowRight, Windowtop, WindowBottom}) {
        Captions c(side);
        c.GiveCloseButtons(14);
        c.State.Properties.CaptionPos = side == Windowtop || side == WindowBottom ? AlignRight : AlignLeft;
        c.Caption(0, u"HIH");
        const LayoutRect button = CloseButtonRect(c.State, 0), written = c.Written();
        const std::int32_t gap =
            c.State.Layout.IsHorizontal ? button.Left - written.Right : button.Top - written.Bottom;
        CAPTURE(side);
        CHECK(gap >= 0);
        CHECK(gap <= 3); // what a letter leaves free of its own width
    }
}

TEST_CASE("a close button that is not shown takes no room from the caption") {
    for (const std::int32_t side : {WindowLeft, WindowRight, Windowtop, WindowBottom}) {
        Captions c(side);
        c.State.Properties.DelButton = False;
        c.State.Properties.CaptionPos = side == Windowtop || side == WindowBottom ? AlignRight : AlignLeft;
        c.Caption(0, u"HIH");
        const LayoutRect without = c.Written();
        c.GiveCloseButtons(14);
        c.State.Properties.DelButton = False;
        c.Caption(0, u"HIH");
        CAPTURE(side);
        CHECK(Text(c.Written()) == Text(without));
    }
}

TEST_CASE("a close button moved to the bar's leading end leaves the caption the rest") {
    Captions c;
    c.GiveCloseButtons(14);
    c.State.Properties.DelBtnXJust = -70;
    c.State.Properties.CaptionPos = AlignRight;
    c.Caption(0, u"Text");
    CHECK(c.Written().Right > BarRect(c.State, 0).Right - 5);
}

TEST_CASE("an enabled active tab is written in CaptionColor1, any other enabled tab in CaptionColor0") {
    Captions c;
    c.State.Properties.CaptionColor1 = 0x00FF00;
    c.Caption(1, std::u16string(Block));
    CHECK(c.Shows(InkPixel));
    CHECK_FALSE(c.Shows(0x00FF00));
    c.Caption(1, u"");
    c.Caption(0, std::u16string(Block));
    CHECK(c.Shows(0x00FF00));
    CHECK_FALSE(c.Shows(InkPixel));
}

TEST_CASE("a disabled tab that is also the active tab is not written in CaptionColor1 but in grey") {
    for (const std::int32_t side : {Windowtop, WindowLeft}) {
        Captions c(side);
        c.State.Tabs(0).Enable = False;
        c.Caption(0, std::u16string(Block) + std::u16string(Block));
        CHECK_FALSE(c.Shows(InkPixel));
        const COLORREF grey = GetSysColor(COLOR_GRAYTEXT);
        CHECK(c.Shows((std::uint32_t{GetRValue(grey)} << 16) | (std::uint32_t{GetGValue(grey)} << 8) |
                      GetBValue(grey)));
    }
}

TEST_CASE("caption colours may be system colours, and a number that is none writes in black") {
    Captions c;
    c.State.Properties.CaptionColor1 = static_cast<std::int32_t>(0x80000000 | COLOR_HIGHLIGHT);
    c.Caption(0, std::u16string(Block));
    const COLORREF highlight = GetSysColor(COLOR_HIGHLIGHT);
    CHECK(c.Shows((std::uint32_t{GetRValue(highlight)} << 16) | (std::uint32_t{GetGValue(highlight)} << 8) |
                  GetBValue(highlight)));
    c.State.Properties.CaptionColor1 = static_cast<std::int32_t>(0xFFFFFFFF);
    c.Caption(0, std::u16string(Block));
    CHECK(c.Shows(0x000000));
}

TEST_CASE(
    "the host may have captions written in other colours than the properties', on a ground of their own") {
    constexpr std::int32_t none = 0x010101;
    for (const std::int32_t side : {Windowtop, WindowLeft}) {
        Captions c(side);
        c.State.Properties.CaptionColor1 = none;
        std::int32_t given[3] = {};
        c.Host.OtherColours = [&](const CaptionColours& colours, CaptionKind kind) {
            given[int(kind)] = colours.Text;
            CHECK(!colours.Ground);
            return kind == CaptionKind::Active ? CaptionColours{0x00FF00, 0xFF00FF}
                                               : CaptionColours{0xFF0000, {}};
        };
        c.Caption(0, u"     "); // five blanks, of which nothing is seen but their ground
        CHECK((side == Windowtop ? c.Written().Width : c.Written().Height) > 10);
        CHECK((side == Windowtop ? c.Written().Height : c.Written().Width) > 8);
        CHECK(c.Shows(0xFF00FF));
        c.Caption(0, std::u16string(Block));
        c.Caption(1, std::u16string(Block));
        CHECK(c.Shows(0x00FF00));
        CHECK(c.Shows(0x0000FF));
        CHECK_FALSE(c.Shows(InkPixel));
        CHECK(c.State.Properties.CaptionColor0 == Ink);
        c.State.Tabs(1).Enable = False;
        c.Driver.RepaintAll();
        CHECK(given[int(CaptionKind::Normal)] == Ink);
        CHECK(given[int(CaptionKind::Active)] == none);
        CHECK(given[int(CaptionKind::Disabled)] == static_cast<std::int32_t>(0x80000000 | COLOR_GRAYTEXT));
    }
}

TEST_CASE("on the left and right the active tab has a heavy turned font, any other a normal one") {
    Captions c(WindowLeft);
    c.State.Tabs(1).Caption = u"b";
    c.Caption(0, u"a"); // tab 1 is painted last
    CHECK(c.Surfaces.CaptionFont.lfWeight == 400);
    c.Driver.RedrawBar(0, BarActive);
    CHECK(c.Surfaces.CaptionFont.lfWeight == 1000);
    CHECK(c.Surfaces.CaptionFont.lfEscapement == 900);
    CHECK(c.Surfaces.CaptionFont.lfHeight == 12);
    CHECK(FromWide(c.Surfaces.CaptionFont.lfFaceName) == u"DejaVu Sans");
}

TEST_CASE(
    "captions on the left and right run from bottom to top, inside the bar and in the middle of its fill") {
    for (const std::int32_t side : {WindowLeft, WindowRight}) {
        Captions c(side);
        const auto writtenAt = [&](std::int32_t position) {
            c.State.Properties.CaptionPos = position;
            c.Caption(0, u"HIH");
            return c.Written();
        };
        const LayoutRect left = writtenAt(AlignLeft), bar = BarRect(c.State, 0);
        const LayoutRect middle = writtenAt(AlignMiddle), right = writtenAt(AlignRight);
        CHECK(left.Height > left.Width); // turned
        CHECK(left.Bottom <= bar.Bottom);
        CHECK(left.Bottom >= bar.Bottom - 3);
        CHECK(std::abs(middle.Top + middle.Bottom - bar.Top - bar.Bottom) <= 4);
        CHECK(right.Top >= bar.Top);
        CHECK(right.Top <= bar.Top + 3);
        const LayoutRect band = FillBand(c.State, 0, BarActive);
        CHECK(std::abs(left.Left + left.Right - band.Left - band.Right) <= 4);
    }
}

TEST_CASE("captions on the left and right stand in the middle of their own look's fill") {
    for (const std::int32_t side : {WindowLeft, WindowRight}) {
        CAPTURE(side);
        Captions c(side);
        constexpr std::int32_t heights[] = {16, 20, 22};
        for (std::int32_t look = 0; look < 3; ++look) {
            SkinRect& fill = c.State.SkinRects[FillPic0 + look];
            fill = {fill.Left, 0, fill.Left, heights[look] - 1, 1, heights[look]};
        }
        const auto writtenIn = [&](std::uint8_t look) {
            c.State.Properties.ActiveTab = look == BarActive ? 1 : 0;
            c.State.HoverTab = look == BarHover ? 1 : -1;
            c.Caption(1, u"HIH");
            return c.Written();
        };
        // On the left a lower fill stands 22 - height farther in, on the right as much nearer to the page.
        const std::int32_t sign = side == WindowLeft ? 1 : -1;
        const std::int32_t normal = writtenIn(BarNormal).Left, hover = writtenIn(BarHover).Left;
        CHECK(normal - hover == sign * ((22 - 16) - (22 - 20) - (20 - 16) / 2));
        const LayoutRect active = writtenIn(BarActive);
        const LayoutRect band = FillBand(c.State, 1, BarActive);
        CHECK(std::abs(active.Left + active.Right - band.Left - band.Right) <= 3);
    }
}

TEST_CASE("captions on the left and right move by CaptionXjust and CaptionYjust") {
    Captions c(WindowLeft);
    c.State.Properties.CaptionPos = AlignMiddle;
    c.Caption(0, u"HIH");
    const LayoutRect before = c.Written();
    c.State.Properties.CaptionXjust = 2;
    c.State.Properties.CaptionYjust = -20;
    c.Caption(0, u"HIH");
    CHECK(Text(c.Written()) == Text(Moved(before, 2, -20)));
}

TEST_CASE("no caption leaves its own bar, however it is moved") {
    for (const std::int32_t side : {WindowLeft, WindowRight, Windowtop, WindowBottom}) {
        Captions c(side);
        c.State.Properties.CaptionXjust = c.State.Properties.CaptionYjust = -9;
        c.Caption(1, u"WWWWWWWWWWWW");
        const LayoutRect bar = BarRect(c.State, 1), written = c.Written();
        CAPTURE(Text(bar));
        CAPTURE(Text(written));
        CHECK(written.Left >= bar.Left);
        CHECK(written.Top >= bar.Top);
        CHECK(written.Right <= bar.Right);
        CHECK(written.Bottom <= bar.Bottom);
    }
}

TEST_CASE("a control without a font writes in the surface's own") {
    for (const std::int32_t side : {Windowtop, WindowLeft}) {
        Captions c(side);
        c.Surfaces.Font = nullptr;
        c.Caption(0, u"Text");
        CHECK(c.Written().Width > 0);
    }
}

TEST_CASE("no alignment, whatever its number, writes outside the text or the bar") {
    Captions c;
    for (const std::int32_t position : {-1, 3, 0x10000, 0x8000, 0x400, 0x7FFFFFFF}) {
        c.State.Properties.CaptionPos = position;
        for (const std::int32_t side : {Windowtop, WindowRight}) {
            c.State.Properties.TabPos = side;
            CHECK(NumberRaisedBy([&] { c.Caption(0, u"Some caption that does not fit"); }) == 0);
        }
    }
}

TEST_CASE("shifts at the edges of 16 bits write nothing and do not fail") {
    for (const std::int32_t side : {Windowtop, WindowLeft}) {
        Captions c(side);
        c.State.Properties.CaptionXjust = -32768;
        c.State.Properties.CaptionYjust = 32767;
        c.Caption(0, u"Text");
        CHECK(Difference(c.Read(), c.Expected()) == "same");
    }
}

TEST_CASE("a state whose pieces leave the skin table raises subscript out of range before painting") {
    Captions c;
    c.Caption(0, u"Text");
    const Pixels before = c.Read();
    CHECK(NumberRaisedBy([&] { c.Driver.RedrawBar(0, 24); }) == 9);
    CHECK(Difference(c.Read(), before) == "same");
}

TEST_CASE("any other TabBorder value draws no background") {
    Captions c;
    c.State.Properties.TabBorder = 2;
    c.Driver.RepaintAll();
    CHECK(Difference(c.Read(), c.Expected()) == "same"); // the loops draw none either
    c.Caption(0, u"Text");
    CHECK(c.Shows(InkPixel));
}

TEST_CASE("the height of the letter A at size 12 is measured on a copy of the font") {
    const TestSurface surface(1, 1);
    const ComPtr<IFontDisp> font = FontOf(u"DejaVu Sans", 30);
    const auto size = [&] {
        CY points;
        QueryFor<IFont>(font.Get())->get_Size(&points);
        return points.int64;
    };
    const LONGLONG before = size();
    const std::int16_t height = CaptionTextHeightOf(font.Get(), surface.DC());
    CHECK(height == CaptionTextHeightOf(FontOf(u"DejaVu Sans", 12).Get(), surface.DC()));
    CHECK(size() == before);
    CHECK(CaptionTextHeightOf(nullptr, surface.DC()) > 0);
}

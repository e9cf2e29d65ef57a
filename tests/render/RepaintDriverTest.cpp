#include "render/RepaintDriver.h"

#include <doctest/doctest.h>

#include "render/BarGeometry.h"
#include "tests/RunTimeErrors.h"
#include "tests/gfx/GdiObjects.h"
#include "tests/render/LayoutText.h"
#include "tests/render/PaintedControl.h"

using namespace vantik;
using namespace vantik::test;

namespace {

// Three tabs on top of 160 x 120, all of them shown.
struct Row : PaintedControl {
    explicit Row(bool withWindow = false) : PaintedControl(160, 120, withWindow) {
        MakeSkin(1);
        AddTabs(3);
    }
};

void ShowPicture(PaintedControl& painted, const Pixels& picture) {
    painted.Picture = picture;
    painted.Surfaces.Picture = PictureOf(picture);
}

} // namespace

TEST_CASE("with no tabs a full repaint paints background, frame and corners and no bar") {
    Row row;
    row.AddTabs(0);
    row.Driver.RepaintAll();
    CHECK(Difference(row.Read(), row.Expected()) == "same");
    CHECK(row.Decorations.TakeLog() == "buttons");
    CHECK(row.State.Layout.VisibleBarCount == 0);
}

TEST_CASE("across and down, the size in pixels is whole twips divided by a whole factor of its own") {
    Row row;
    row.Host.PerPixelX = 7.5; // rounds to 8
    row.Host.PerPixelY = 6.6; // to 7
    row.Host.WidthTwips = 160 * 8 - 0.5;
    row.Host.HeightTwips = 120 * 7 - 0.4;
    row.Driver.RepaintAll();
    CHECK(row.State.Layout.ControlRect == LayoutRect::FromEdges(0, 0, 160, 120));
}

TEST_CASE("a full repaint clears, paints each bar with its decorations in order and the buttons last") {
    Row row;
    row.State.Properties.ActiveTab = 1;
    row.State.HoverTab = 2;
    row.Driver.RepaintAll();
    CHECK(row.Host.TakeLog() == "Cls");
    // Every bar hands out State 0 and Flag 0, though each call writes to its arguments.
    CHECK(row.Decorations.TakeLog() ==
          "icon 0 0; close 0 0 0; icon 1 2; close 1 0 0; icon 2 1; close 2 0 0; buttons");
}

TEST_CASE("when the hover tab is also the active tab the bar is painted in the active state") {
    Row row;
    row.State.Properties.ActiveTab = row.State.HoverTab = 1;
    row.Driver.RepaintAll();
    CHECK(row.Decorations.TakeLog().find("icon 1 2") != std::string::npos);
    CHECK(Difference(row.Read(), row.Expected()) == "same");
}

TEST_CASE("an active tab of -1 or past the last tab paints every bar in its other looks") {
    for (const std::int16_t active : {std::int16_t{-1}, std::int16_t{3}}) {
        Row row;
        row.State.Properties.ActiveTab = active;
        row.Driver.RepaintAll();
        CHECK(row.Decorations.TakeLog() ==
              "icon 0 0; close 0 0 0; icon 1 0; close 1 0 0; icon 2 0; close 2 0 0; buttons");
    }
}

TEST_CASE("a bars-only repaint invalidates the strip alone") {
    Row row(true);
    row.Driver.RepaintAll();
    CHECK(row.Host.TakeInvalidated() == "0,0,160,120");
    row.Driver.RedrawBars();
    const LayoutRect& strip = row.State.Layout.BarStripRect;
    CHECK(row.Host.TakeInvalidated() ==
          std::to_string(strip.Left) + ",0," + std::to_string(strip.Right) + ",22");
    CHECK(row.Host.TakeLog() == "Cls"); // the full repaint's own
}

namespace {

// Leaves erasing to who paints, so that BeginPaint says whether it was asked for.
LRESULT CALLBACK ErasesNothing(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return message == WM_ERASEBKGND ? 0 : DefWindowProcW(window, message, wParam, lParam);
}

} // namespace

TEST_CASE("whatever is repainted, the window is told to erase it first") {
    Row row(true);
    SetWindowLongPtrW(row.Host.hWnd(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(ErasesNothing));
    const auto asksToErase = [&] {
        PAINTSTRUCT paint;
        BeginPaint(row.Host.hWnd(), &paint);
        EndPaint(row.Host.hWnd(), &paint);
        return paint.fErase != FALSE;
    };
    row.Driver.RepaintAll();
    CHECK(asksToErase());
    CHECK_FALSE(asksToErase()); // nothing is left to paint
    row.Driver.RedrawBars();
    CHECK(asksToErase());
    row.Driver.RedrawBar(1, BarNormal);
    CHECK(asksToErase());
}

TEST_CASE("a bars-only repaint without tabs invalidates nothing") {
    Row row(true);
    row.AddTabs(0);
    row.Driver.RepaintAll();
    row.Host.TakeInvalidated();
    row.Driver.RedrawBars();
    CHECK(row.Host.TakeInvalidated() == "");
}

TEST_CASE("a single-bar redraw draws and invalidates only that bar") {
    Row row(true);
    row.Driver.RepaintAll();
    row.Host.TakeInvalidated();
    row.Decorations.TakeLog();
    row.Driver.RedrawBar(1, BarActive);
    const std::int32_t left = row.State.Layout.BarStripRect.Left + 30;
    CHECK(row.Host.TakeInvalidated() == std::to_string(left) + ",0," + std::to_string(left + 30) + ",22");
    CHECK(row.Decorations.TakeLog() == "icon 1 2; close 1 0 0");
    row.State.Properties.ActiveTab = 1;
    CHECK(Difference(row.Read(), row.Expected()) == "same");
}

namespace {

// Overlapping bars with edges of their own, in different looks.
struct OverlappingRow : Row {
    explicit OverlappingRow(std::int32_t side) : Row(true) {
        State.Properties.TabPos = side;
        State.Properties.TabBorder = True;
        State.Properties.TabToTab = -6;
        State.Properties.ActiveTab = 1;
        Driver.RepaintAll();
        Host.TakeInvalidated();
    }
    std::string RowText() const {
        LayoutRect row = State.Layout.BarStripRect;
        (State.Layout.IsHorizontal ? row.Right : row.Bottom) += 6;
        const auto n = [](std::int32_t value) { return std::to_string(value); };
        return n(row.Left) + "," + n(row.Top) + "," + n(row.Right) + "," + n(row.Bottom);
    }
};

constexpr std::int32_t Sides[] = {WindowLeft, WindowRight, Windowtop, WindowBottom};

} // namespace

TEST_CASE(
    "bars with a negative gap overlap, a later one over the one before, and the last one keeps its end") {
    for (const std::int32_t side : Sides) {
        CAPTURE(side);
        OverlappingRow row(side);
        CHECK(Difference(row.Read(), row.Expected()) == "same");
        row.Driver.RedrawBars();
        CHECK(Difference(row.Read(), row.Expected()) == "same");
    }
    OverlappingRow row(Windowtop);
    const std::int32_t end = row.State.Layout.BarStripRect.Right + 6;
    const SkinRect& piece = row.State.SkinRects[RightPic0];
    int seen = 0;
    for (std::int32_t y = 0; y < piece.Height; ++y) {
        const std::uint32_t pixel = row.Skin.At(piece.Right, piece.Top + y);
        const std::int32_t at = row.State.SkinRects[RightPic0 + 2].Height - piece.Height + y;
        if (pixel != 0xFF00FF && at >= 0 && at < 22) seen += row.Read().At(end - 1, at) == pixel;
    }
    CHECK(seen > 5);
}

TEST_CASE(
    "a bars-only repaint of overlapping bars invalidates the strip and what the last one reaches behind it") {
    for (const std::int32_t side : Sides) {
        CAPTURE(side);
        OverlappingRow row(side);
        row.Driver.RedrawBars();
        CHECK(row.Host.TakeInvalidated() == row.RowText());
    }
}

TEST_CASE("a single-bar redraw among overlapping bars keeps those over it over it, and invalidates the row") {
    for (const std::int32_t side : Sides) {
        CAPTURE(side);
        OverlappingRow row(side);
        row.State.Properties.ActiveTab = -1;
        row.Driver.RedrawBar(1, BarNormal);
        CHECK(Difference(row.Read(), row.Expected()) == "same");
        CHECK(row.Host.TakeInvalidated() == row.RowText());
        row.Driver.RedrawBar(1, BarHover);
        row.State.HoverTab = 1;
        CHECK(Difference(row.Read(), row.Expected()) == "same");
    }
}

TEST_CASE("bars that become shorter leave nothing behind the strip") {
    for (const std::int32_t side : Sides) {
        CAPTURE(side);
        OverlappingRow row(side);
        row.State.Properties.TabToTab = 0;
        row.Driver.RepaintFrame(); // what follows an assignment of TabToTab
        row.Driver.RedrawBars();
        CHECK(Difference(row.Read(), row.Expected()) == "same");
    }
}

TEST_CASE("pieces taller than the strip end at its edges") {
    for (const std::int32_t side : Sides) {
        CAPTURE(side);
        OverlappingRow row(side);
        row.MakeSkin(7, {.Unusual = true});
        row.Driver.RepaintAll();
        CHECK(Difference(row.Read(), row.Expected()) == "same");
        row.Driver.RedrawBar(1, BarActive);
        CHECK(Difference(row.Read(), row.Expected()) == "same");
    }
}

TEST_CASE("a single-bar redraw of a bar outside the visible row draws nothing") {
    Row row(true);
    row.AddTabs(20);
    row.Driver.RepaintAll();
    row.State.Layout.FirstVisibleTab = 2;
    const Pixels before = row.Read();
    row.Host.TakeInvalidated();
    row.Decorations.TakeLog();
    row.Driver.RedrawBar(1, BarActive);
    row.Driver.RedrawBar(static_cast<std::int16_t>(2 + row.State.Layout.VisibleBarCount), BarActive);
    CHECK(Difference(row.Read(), before) == "same");
    CHECK(row.Host.TakeInvalidated() == "");
    CHECK(row.Decorations.TakeLog() == "");
}

TEST_CASE("painting before a skin is loaded draws nothing and does not fail") {
    PaintedControl control;
    control.AddTabs(2);
    control.Driver.RepaintAll();
    CHECK(control.Read() == Pixels(160, 120, control.Host.BackColour));
}

TEST_CASE("a control of no size, smaller than its margins, or upside down paints without failing") {
    for (const std::int32_t extent : {0, 1, 9}) {
        PaintedControl control(extent, extent);
        control.MakeSkin(3);
        control.AddTabs(2);
        control.State.Properties.FrameDist = 12;
        for (const std::int32_t side : {WindowLeft, WindowRight, Windowtop, WindowBottom, dTabPos{99}}) {
            control.State.Properties.TabPos = side;
            CHECK(NumberRaisedBy([&] { control.Driver.RepaintAll(); }) == 0);
        }
    }
}

TEST_CASE("bars of no, one or a negative width") {
    Row row;
    row.State.Properties.BarWidth = 0;
    CHECK(NumberRaisedBy([&] { row.Driver.RepaintAll(); }) == 11);
    for (const std::int16_t width : {std::int16_t{1}, std::int16_t{-7}}) {
        row.State.Properties.BarWidth = width;
        CHECK(NumberRaisedBy([&] { row.Driver.RepaintAll(); }) == 0);
        CHECK(Difference(row.Read(), row.Expected()) == "same");
    }
}

TEST_CASE("an error of the overflow rule comes after the orientation and the clear background") {
    Row row;
    row.Driver.RepaintAll();
    const LayoutCache before = row.State.Layout;
    row.State.Properties.TabPos = WindowLeft;
    row.State.Properties.BarWidth = 0;
    row.Host.TakeLog();
    CHECK(NumberRaisedBy([&] { row.Driver.RepaintAll(); }) == 11);
    CHECK(row.Host.TakeLog() == "Cls");
    CHECK(row.State.Layout.IsHorizontal == False);
    CHECK(row.State.Layout.VisibleBarCount == before.VisibleBarCount);
    CHECK(row.State.Layout.BarStripRect == before.BarStripRect);
    CHECK(Difference(row.Read(), Pixels(160, 120, 0x336699)) == "same");
}

TEST_CASE("an error of the frame comes after the layout") {
    Row row;
    row.Driver.RepaintAll();
    row.AddTabs(5);
    row.Host.WidthTwips = 40000 * FakeUserControl::TwipsPerPixel; // the frame's coordinates are 16-bit
    CHECK(NumberRaisedBy([&] { row.Driver.RepaintAll(); }) == 6);
    CHECK(row.State.Layout.ControlRect.Right == 40000);
    CHECK(row.State.Layout.VisibleBarCount == 5);
    CHECK(Difference(row.Read(), Pixels(160, 120, 0x336699)) == "same");
}

TEST_CASE("an error of a bar comes after the strip's restore and the bars before it") {
    Row row;
    row.Driver.RepaintAll();
    LayoutCache& layout = row.State.Layout;
    layout.VisibleBarCount = 0;
    const Pixels underlay = row.Expected();
    layout.VisibleBarCount = 3;
    for (const std::int16_t first : {std::int16_t{-2}, std::int16_t{32767}}) {
        layout.FirstVisibleTab = first;
        CHECK(NumberRaisedBy([&] { row.Driver.RedrawBars(); }) == 9);
        CHECK(Difference(row.Read(), underlay) == "same");
    }

    layout.FirstVisibleTab = 2; // 3 is the spare record, 4 is none
    row.Decorations.TakeLog();
    CHECK(NumberRaisedBy([&] { row.Driver.RedrawBars(); }) == 9);
    CHECK(row.Decorations.TakeLog() == "icon 2 0; close 2 0 0; icon 3 0; close 3 0 0");
    Pixels expected = row.Expected();
    const LayoutRect missing = SlotRect(row.State, 2);
    for (std::int32_t y = missing.Top; y < missing.Bottom; ++y)
        for (std::int32_t x = missing.Left; x < missing.Right; ++x) expected.Set(x, y, underlay.At(x, y));
    CHECK(Difference(row.Read(), expected) == "same");
}

TEST_CASE("the picture is aligned with the container and shows only where it has pixels") {
    Row row;
    ShowPicture(row, Patterned(100, 80, 5));
    row.Host.LeftTwips = 10 * FakeUserControl::TwipsPerPixel;
    row.Host.TopTwips = 20 * FakeUserControl::TwipsPerPixel;
    row.Driver.RepaintAll();
    CHECK(row.Read().At(60, 30) == row.Picture.At(70, 50));
    CHECK(row.Read().At(95, 30) == 0x336699); // 105 is beyond the picture
    CHECK(Difference(row.Read(), row.Expected()) == "same");
}

TEST_CASE("pixels of the picture that have the key colour stay clear, in every kind of repaint") {
    for (const std::int32_t side : {WindowLeft, WindowRight, Windowtop, WindowBottom}) {
        CAPTURE(side);
        Row row;
        row.State.Properties.TabPos = side;
        Pixels picture = Patterned(150, 110, 5);
        for (std::int32_t y = 0; y < picture.Height; ++y)
            for (std::int32_t x = y % 3; x < picture.Width; x += 3) picture.Set(x, y, 0xFF00FF);
        ShowPicture(row, picture);
        row.Driver.RepaintAll();
        CHECK(row.Read().At(60, 60) == 0x336699); // the background; 60 is a multiple of 3
        CHECK(row.Read().At(61, 60) == picture.At(61, 60));
        CHECK(Difference(row.Read(), row.Expected()) == "same");
        row.Driver.RedrawBars();
        row.Driver.RedrawBar(1, BarNormal);
        CHECK(Difference(row.Read(), row.Expected()) == "same");
    }
}

TEST_CASE("a smaller picture after a larger one leaves nothing of the larger one") {
    Row row;
    ShowPicture(row, Patterned(150, 110, 5));
    row.Driver.RepaintAll();
    ShowPicture(row, Patterned(50, 60, 6));
    row.Driver.RepaintAll();
    CHECK(Difference(row.Read(), row.Expected()) == "same");
    row.Surfaces.Picture = nullptr;
    row.Picture = {};
    row.Driver.RepaintAll();
    CHECK(Difference(row.Read(), row.Expected()) == "same");
}

TEST_CASE("repainting the frame keeps the corners, the picture and the buttons") {
    Row row;
    ShowPicture(row, Patterned(150, 110, 5));
    row.Driver.RepaintAll();
    row.Decorations.TakeLog();
    row.Driver.RepaintFrame();
    CHECK(row.Decorations.TakeLog() == "buttons");
    row.Driver.RedrawBars();
    CHECK(Difference(row.Read(), row.Expected()) == "same");
}

TEST_CASE("a repaint leaves the surface's font, colours, modes and clipping as they were") {
    for (const std::int32_t side : {Windowtop, WindowLeft}) {
        Row row;
        row.State.Properties.TabPos = side;
        row.State.Tabs(1).Caption = u"x";
        const HDC dc = row.Host.hDC();
        const HGDIOBJ font = GetCurrentObject(dc, OBJ_FONT);
        SetTextColor(dc, RGB(1, 2, 3));
        SetBkMode(dc, OPAQUE);
        row.Driver.RepaintAll();
        CHECK(GetCurrentObject(dc, OBJ_FONT) == font);
        CHECK(GetTextColor(dc) == RGB(1, 2, 3));
        CHECK(GetBkMode(dc) == OPAQUE);
        RECT clip;
        CHECK((GetClipBox(dc, &clip) == SIMPLEREGION && clip.right == 160 && clip.bottom == 120));
    }
}

TEST_CASE("repaints leave no GDI objects behind") {
    Row row;
    ShowPicture(row, Patterned(150, 110, 5));
    const auto paintEverySide = [&] {
        for (const std::int32_t side : {WindowLeft, WindowRight, Windowtop, WindowBottom}) {
            row.State.Properties.TabPos = side;
            for (std::int16_t i = 0; i < 3; ++i) row.State.Tabs(i).Caption = u"Caption";
            row.Driver.RepaintAll();
            row.Driver.RedrawBars();
            row.Driver.RedrawBar(1, BarHover);
        }
    };
    paintEverySide(); // fills what is kept
    const int before = GdiObjectCount();
    for (int i = 0; i < 50; ++i) paintEverySide();
    CHECK(GdiObjectCount() == before);
}

TEST_CASE("preparing computes the layout and painting carries it out later") {
    Row row;
    row.Driver.PrepareAll();
    CHECK(row.State.Layout.VisibleBarCount == 3);
    CHECK(row.Host.TakeLog() == "");
    CHECK(row.Read() == Pixels(160, 120));
    row.Driver.PaintAll();
    CHECK(Difference(row.Read(), row.Expected()) == "same");
}

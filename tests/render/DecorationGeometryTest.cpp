#include "render/DecorationGeometry.h"

#include <doctest/doctest.h>

#include "render/BarGeometry.h"
#include "tests/RunTimeErrors.h"
#include "tests/render/LayoutText.h"

using namespace vantik;
using namespace vantik::test;

namespace {

std::int16_t AddIcon(ControlState& c, std::int16_t width, std::int16_t height) {
    SkinIcon& icon = c.SkinIcons.Append();
    icon.Width = width;
    icon.Height = height;
    return static_cast<std::int16_t>(c.SkinIcons.SkinIconCount() - 1);
}

// Three bars of 40 x 22 at (6, 3) on a horizontal, at (3, 6) on a vertical side, the second to fourth of ten tabs. The
// fills are 18, 19 and 20 high, the leading ends 4, 5 and 6 wide, the trailing ones 9, 7 and 8. The control is much
// larger.
ControlState Row(std::int32_t side) {
    ControlState c;
    c.Properties.TabCount = 10;
    c.Properties.TabPos = side;
    c.Properties.BarWidth = 40;
    c.Layout.FirstVisibleTab = 1;
    c.Layout.VisibleBarCount = 3;
    c.Layout.IsHorizontal = side == Windowtop || side == WindowBottom ? True : False;
    c.Layout.BarStripRect =
        c.Layout.IsHorizontal ? LayoutRect::FromEdges(6, 3, 126, 25) : LayoutRect::FromEdges(3, 6, 25, 126);
    c.Layout.ControlRect = LayoutRect::FromEdges(0, 0, 300, 300);
    constexpr std::int32_t trailing[] = {9, 7, 8};
    for (std::int32_t s = 0; s < 3; ++s) {
        c.SkinRects[FillPic0 + s].Height = 18 + s;
        c.SkinRects[LeftPic0 + s].Width = 4 + s;
        c.SkinRects[RightPic0 + s].Width = trailing[s];
    }
    c.SkinIcons.DeleteButtonIcon = AddIcon(c, 14, 12);
    c.SkinIcons.LeftButtonIcon = AddIcon(c, 10, 13);
    c.SkinIcons.RightButtonIcon = AddIcon(c, 11, 14);
    c.SkinIcons.MenuBarIcon = AddIcon(c, 12, 15);
    return c;
}

std::string Icon(const ControlState& c, std::int16_t index, std::uint8_t state, PngSize size = {16, 10}) {
    const PixelPoint at = TabIconPosition(c, index, state, size);
    return std::to_string(at.X) + "," + std::to_string(at.Y);
}

std::string Buttons(const ControlState& c) {
    const ButtonRects rects = NavButtonRects(c);
    return Text(rects.Previous) + " " + Text(rects.Next) + " " + Text(rects.Menu);
}

} // namespace

TEST_CASE("a horizontal icon stands behind the leading end, in the middle of its own look's fill") {
    CHECK(Icon(Row(WindowBottom), 1, 0) == "10,7"); // 6 + 4; 3 + (18 - 10) / 2
    CHECK(Icon(Row(WindowBottom), 3, 2) == "92,8"); // 6 + 80 + 6; 3 + (20 - 10) / 2
    CHECK(Icon(Row(Windowtop), 1, 0) ==
          "10,11"); // lower by 22 - 18: on top a lower fill stands at the inner edge
    CHECK(Icon(Row(Windowtop), 1, 1) == "11,10");
}

TEST_CASE("a vertical icon stands below the leading end, in the middle of its own look's fill") {
    CHECK(Icon(Row(WindowRight), 1, 0) == "4,10"); // 3 + (18 - 16) / 2; 6 + 4
    CHECK(Icon(Row(WindowRight), 3, 2) == "5,92");
    CHECK(Icon(Row(WindowLeft), 1, 0) == "8,10"); // farther by 22 - 18
}

TEST_CASE("IcoXjust and IcoYjust shift the icon in x and y on every side") {
    for (const std::int32_t side : {WindowLeft, WindowRight, Windowtop, WindowBottom}) {
        ControlState c = Row(side);
        const PixelPoint before = TabIconPosition(c, 2, 0, {16, 16});
        c.Properties.IcoXjust = 5;
        c.Properties.IcoYjust = -7;
        const PixelPoint after = TabIconPosition(c, 2, 0, {16, 16});
        CHECK(after.X - before.X == 5);
        CHECK(after.Y - before.Y == -7);
    }
}

TEST_CASE("an odd rest is cut off towards zero, also for an icon larger than its bar") {
    CHECK(Icon(Row(WindowBottom), 1, 0, {16, 15}) == "10,4"); // 3 / 2 = 1
    CHECK(Icon(Row(WindowBottom), 1, 0, {16, 21}) == "10,2"); // -3 / 2 = -1
    CHECK(Icon(Row(WindowRight), 1, 0, {21, 16}) == "2,10");
}

TEST_CASE("an icon's state beyond the skin table is a subscript error, a far tab overflows") {
    ControlState c = Row(Windowtop);
    CHECK(NumberRaisedBy([&] { TabIconPosition(c, 1, 24, {}); }) == 9);
    c.Layout.FirstVisibleTab = -1;
    CHECK(NumberRaisedBy([&] { TabIconPosition(c, 32767, 0, {}); }) == 6);
}

TEST_CASE("the close button ends before the widest trailing end of its slot, in the middle of the strip") {
    CHECK(Text(CloseButtonRect(Row(Windowtop), 0)) == "23,8-36,19"); // 6 + 40 - 9 - 14; 3 + (22 - 12) / 2
    CHECK(Text(CloseButtonRect(Row(WindowBottom), 2)) == "103,8-116,19");
    CHECK(Text(CloseButtonRect(Row(WindowLeft), 0)) == "7,25-20,36"); // 3 + (22 - 14) / 2; 6 + 40 - 9 - 12
    CHECK(Text(CloseButtonRect(Row(WindowRight), 1)) == "7,65-20,76");
}

TEST_CASE("the gap between bars moves the close button, its adjustments shift it in x and y") {
    for (const std::int32_t side : {WindowLeft, WindowRight, Windowtop, WindowBottom}) {
        ControlState c = Row(side);
        const LayoutRect before = CloseButtonRect(c, 1);
        c.Properties.DelBtnXJust = 2;
        c.Properties.DelBtnYJust = -3;
        const LayoutRect shifted = CloseButtonRect(c, 1);
        CHECK(shifted.Left - before.Left == 2);
        CHECK(shifted.Bottom - before.Bottom == -3);
        c.Properties.TabToTab = 4;
        const LayoutRect moved = CloseButtonRect(c, 1);
        CHECK(shifted.Left - moved.Left + shifted.Top - moved.Top == 4);
    }
}

TEST_CASE("the corner pixels of the close button hit it, their neighbours outside do not") {
    const LayoutRect rect = CloseButtonRect(Row(Windowtop), 0);
    CHECK(PointInRect(23, 8, rect));
    CHECK(PointInRect(36, 19, rect));
    CHECK_FALSE(PointInRect(37, 19, rect));
    CHECK_FALSE(PointInRect(36, 20, rect));
    CHECK_FALSE(PointInRect(22, 8, rect));
}

TEST_CASE("a skin without a close button has none to hit") {
    ControlState c = Row(Windowtop);
    c.SkinIcons.DeleteButtonIcon = -1;
    const LayoutRect rect = CloseButtonRect(c, 0);
    CHECK_FALSE(PointInRect(float(rect.Left), float(rect.Top), rect));
}

TEST_CASE("previous, next and menu follow the strip's far end, each as large as its icon") {
    CHECK(Buttons(Row(Windowtop)) == "134,7-143,19 144,7-154,20 157,6-168,20");
    CHECK(Buttons(Row(WindowLeft)) == "9,134-18,146 8,147-18,160 8,163-19,177");
}

TEST_CASE(
    "on the bottom and on the right the buttons are as far from the strip's outer edge as on top and left") {
    CHECK(Buttons(Row(WindowBottom)) ==
          "134,8-143,20 144,7-154,20 157,7-168,21"); // 28 - 7 = 21 is 19 flipped
    CHECK(Buttons(Row(WindowRight)) == "9,134-18,146 9,147-19,160 8,163-19,177");
}

TEST_CASE("before the buttons would leave the control their gaps shrink, that beside the strip first") {
    const auto inControlOf = [](std::int32_t extent) {
        ControlState c = Row(Windowtop);
        c.Layout.ControlRect = LayoutRect::FromEdges(0, 0, extent, 100);
        const ButtonRects rects = NavButtonRects(c);
        return std::to_string(rects.Previous.Left - 126) + " " +
               std::to_string(rects.Menu.Left - rects.Next.Right - 1) + ", last pixel " +
               std::to_string(rects.Menu.Right);
    };
    CHECK(inControlOf(170) == "8 2, last pixel 168");
    CHECK(inControlOf(169) == "8 2, last pixel 168");
    CHECK(inControlOf(168) == "7 2, last pixel 167");
    CHECK(inControlOf(161) == "0 2, last pixel 160");
    CHECK(inControlOf(160) == "0 1, last pixel 159");
    CHECK(inControlOf(159) == "0 0, last pixel 158");
    CHECK(inControlOf(150) == "-9 0, last pixel 149"); // under the row, for there is no room before it either
    CHECK(inControlOf(20) == "-126 0, last pixel 32"); // not even the buttons alone fit

    ControlState c = Row(WindowLeft);
    c.Properties.TabBarPos = TabRight;
    const auto above = [&](std::int32_t start) {
        c.Layout.BarStripRect = LayoutRect::FromEdges(3, start, 25, 126);
        const ButtonRects rects = NavButtonRects(c);
        return std::to_string(rects.Previous.Top) + " " + std::to_string(rects.Menu.Bottom);
    };
    CHECK(above(60) == "8 51"); // 42 pixels of buttons, and the gaps
    CHECK(above(50) == "0 43");
    CHECK(above(43) == "0 42");
}

TEST_CASE("what the last bar hides behind the strip is kept free for as long as there is room") {
    ControlState c = Row(Windowtop);
    const auto placed = [&](std::int16_t gap, std::int32_t extent, std::int16_t shift = 0) {
        c.Properties.TabToTab = gap;
        c.Properties.NavBtnXjust = shift;
        c.Layout.ControlRect = LayoutRect::FromEdges(0, 0, extent, 100);
        const ButtonRects rects = NavButtonRects(c);
        return std::to_string(rects.Previous.Left - 126) + " " +
               std::to_string(rects.Menu.Left - rects.Next.Right - 1);
    };
    CHECK(placed(-6, 300) == "8 2");
    CHECK(placed(-16, 300) == "18 2");
    CHECK(placed(-16, 177) == "16 2"); // 51 pixels for the 33 of the buttons
    CHECK(placed(-16, 176) == "16 1");
    CHECK(placed(-16, 174) == "15 0");
    CHECK(placed(-16, 300, 10) == "18 2"); // the shift counts
    CHECK(placed(-16, 300, 30) == "38 2");
    c.Properties.TabBarPos = TabRight; // nothing is hidden before the strip
    c.Layout.BarStripRect = LayoutRect::FromEdges(80, 3, 126, 25);
    CHECK(placed(-16, 300) == "-89 2");
}

TEST_CASE("buttons that have no room on their side of the strip stand on the other one") {
    ControlState c = Row(Windowtop);
    c.Layout.BarStripRect = LayoutRect::FromEdges(80, 3, 280, 25);
    c.Properties.TabBarPos = TabCustom; // keeps the place of a row that sat at the far end
    CHECK(NavButtonRects(c).Previous.Left == 37);
    CHECK(NavButtonRects(c).Menu.Right == 71);
    c.Layout.BarStripRect = LayoutRect::FromEdges(20, 3, 220, 25);
    c.Properties.TabBarPos = TabRight;
    CHECK(NavButtonRects(c).Previous.Left == 228);
}

TEST_CASE("buttons as thick as the strip and thicker stay inside the control") {
    for (const std::int32_t side : {WindowLeft, WindowRight, Windowtop, WindowBottom}) {
        CAPTURE(side);
        ControlState c = Row(side);
        c.SkinIcons.Entries[3].Width = c.SkinIcons.Entries[3].Height = 32;
        c.Layout.ControlRect = LayoutRect::FromEdges(0, 0, 300, 300);
        LayoutRect& strip = c.Layout.BarStripRect;
        if (side == WindowBottom) strip = LayoutRect::FromEdges(6, 278, 126, 300);
        if (side == WindowRight) strip = LayoutRect::FromEdges(278, 6, 300, 126);
        const LayoutRect menu = NavButtonRects(c).Menu;
        CHECK(menu.Left >= 0);
        CHECK(menu.Top >= 0);
        CHECK(menu.Right < 300);
        CHECK(menu.Bottom < 300);
    }
}

TEST_CASE("a shift that the gaps cannot take up moves the buttons all the way, out of the control too") {
    ControlState c = Row(Windowtop);
    c.Layout.ControlRect = LayoutRect::FromEdges(0, 0, 165, 100);
    const auto shifted = [&](std::int16_t shift) {
        c.Properties.NavBtnXjust = shift;
        return NavButtonRects(c).Previous.Left;
    };
    CHECK(shifted(0) == 130); // of the gap of 8 there is room for 4
    CHECK(shifted(3) == 130);
    CHECK(shifted(4) == 130);
    CHECK(shifted(10) == 136); // the menu button ends at 168
    CHECK(shifted(-2) == 130);
    CHECK(shifted(-10) == 124);
    CHECK(shifted(-200) == -66);
    c.Properties.NavBtnXjust = 0;
    c.Properties.NavBtnYjust = 90;
    CHECK(NavButtonRects(c).Previous.Top == 97);
}

TEST_CASE(
    "with TabMiddle and TabCustom the buttons stand behind the far end, with TabRight before the leading "
    "end") {
    ControlState c = Row(Windowtop);
    c.Layout.BarStripRect = LayoutRect::FromEdges(106, 3, 226, 25);
    c.Properties.TabBarPos = TabMiddle;
    CHECK(NavButtonRects(c).Previous.Left == 234);
    c.Properties.TabBarPos = TabCustom;
    CHECK(NavButtonRects(c).Previous.Left == 234);
    c.Properties.TabBarPos = TabRight;
    CHECK(Buttons(c) == "63,7-72,19 73,7-83,20 86,6-97,20"); // 98 = 106 - 8 is the first pixel of the gap
    c = Row(WindowLeft);
    c.Layout.BarStripRect = LayoutRect::FromEdges(3, 106, 25, 226);
    c.Properties.TabBarPos = TabRight;
    CHECK(Buttons(c) == "9,54-18,66 8,67-18,80 8,83-19,97");
}

TEST_CASE("NavBtnXjust and NavBtnYjust shift all three buttons in x and y on every side") {
    for (const std::int32_t side : {WindowLeft, WindowRight, Windowtop, WindowBottom}) {
        ControlState c = Row(side);
        const ButtonRects before = NavButtonRects(c);
        c.Properties.NavBtnXjust = 5;
        c.Properties.NavBtnYjust = -2;
        const ButtonRects after = NavButtonRects(c);
        CHECK(after.Previous.Left - before.Previous.Left == 5);
        CHECK(after.Menu.Left - before.Menu.Left == 5);
        CHECK(after.Next.Top - before.Next.Top == -2);
    }
}

TEST_CASE("a missing button takes no room") {
    ControlState c = Row(Windowtop);
    c.SkinIcons.RightButtonIcon = 99;
    CHECK(NavButtonRects(c).Menu.Left == 146);
    CHECK(NavButtonRects(c).Next.Right < NavButtonRects(c).Next.Left);
}

// Laws: room for the buttons is always kept; bars follow each other at a pitch of BarWidth; nothing is clamped.
#include "render/Geometry.h"

#include <doctest/doctest.h>

#include "tests/RunTimeErrors.h"
#include "tests/render/LayoutText.h"

using namespace vantik;
using namespace vantik::test;

namespace {

void SetSize(SkinRect& rect, std::int32_t width, std::int32_t height) {
    rect = {0, 0, width - 1, height - 1, width, height};
}

// A control of 300 x 200 with three tabs; every size of its skin differs from every other.
struct Case {
    PropertyValues P;
    SkinRects Rects;
    SkinIcons Icons;
    std::int32_t W = 300, H = 200;
    LayoutCache Layout;

    Case() {
        P.TabCount = 3;
        SetSize(Rects[TabRect], 100, 11);
        SetSize(Rects[BRect], 1, 22);
        SetSize(Rects[RLeftTopPic], 6, 7);
        SetSize(Rects[RRightTopPic], 5, 8);
        SetSize(Rects[RLeftBottom], 9, 10);
        SetSize(Rects[RRightBottom], 12, 13);
        SetSize(Rects[FBottomLine], 3, 2);
        SetSize(Rects[FLeftLine], 4, 1);
        for (const std::int16_t width : {std::int16_t{14}, std::int16_t{15}, std::int16_t{17}})
            Icons.Append().Width = width;
        Icons.LeftButtonIcon = 0;
        Icons.RightButtonIcon = 1;
        Icons.MenuBarIcon = 2; // reserve: 14 + 15 + 17 + 10 = 56
    }

    GeometryInput Input() const { return {P, Rects, Icons, W, H}; }

    // "bars shown @ first bar"
    std::string Bars() {
        Layout.IsHorizontal = P.TabPos == Windowtop || P.TabPos == WindowBottom ? True : False;
        Layout = ComputeVisibleBars(Input(), Layout);
        return std::to_string(Layout.VisibleBarCount) + " @ " + std::to_string(Layout.FirstVisibleTab);
    }
    void Compute() {
        Bars();
        Layout = ComputeLayout(Input(), Layout);
    }
    std::string Strip() {
        Compute();
        return Text(Layout.BarStripRect);
    }
    std::string StripAt(std::int32_t side, std::int32_t placement) {
        P.TabPos = side;
        P.TabBarPos = placement;
        return Strip();
    }
    std::string BandAndPage(std::int32_t side) {
        P.TabPos = side;
        Compute();
        return Text(Layout.BarBandRect) + " | " + Text(Layout.ClientRect);
    }
};

} // namespace

TEST_CASE(
    "as many bars are shown as fit beside the reserve for the buttons and the frame's left line, twice") {
    Case c;
    c.P.TabCount = 100;
    CHECK(c.Bars() == "11 @ 0"); // (300 - 56 - 8) / 20 = 11.8
    c.P.NavBtnXjust = 16;
    CHECK(c.Bars() == "11 @ 0"); // 11.0
    c.P.NavBtnXjust = 17;
    CHECK(c.Bars() == "10 @ 0");
    c.P.FrameDist = 10;
    CHECK(c.Bars() == "9 @ 0"); // twice FrameDist: 9.95
}

TEST_CASE("side placements count along the height with the vertical adjustment and the same icon widths") {
    Case c;
    c.P.TabCount = 100;
    c.P.TabPos = WindowLeft;
    c.P.NavBtnXjust = 100;      // not theirs
    CHECK(c.Bars() == "6 @ 0"); // (200 - 56 - 8) / 20 = 6.8
    c.P.NavBtnYjust = 17;
    CHECK(c.Bars() == "5 @ 0");
}

TEST_CASE("TabMiddle keeps room for the buttons on both ends") {
    Case c;
    c.P.TabCount = 100;
    c.P.TabBarPos = TabMiddle;
    CHECK(c.Bars() == "9 @ 0"); // (300 - 112 - 8) / 20
}

TEST_CASE("an icon that the skin does not have counts as no width") {
    Case c;
    c.P.TabCount = 100;
    c.Icons.LeftButtonIcon = -1;
    c.Icons.RightButtonIcon = 3; // past the list
    CHECK(c.Bars() == "13 @ 0"); // (300 - 27 - 8) / 20 = 13.25
}

TEST_CASE("the reserve is subtracted even when every bar would fit without it") {
    Case c;
    c.P.TabCount = 15; // 15 x 20 = 300
    CHECK(c.Bars() == "11 @ 0");
}

TEST_CASE("when all tabs fit, every tab is shown and the first visible tab is pulled back to 0") {
    Case c;
    c.Layout.FirstVisibleTab = 2;
    CHECK(c.Bars() == "3 @ 0");
}

TEST_CASE(
    "removing tabs behind the row moves the first visible tab back so that the last bar is the last tab") {
    Case c;
    c.P.TabCount = 30;
    c.Layout.FirstVisibleTab = 19;
    CHECK(c.Bars() == "11 @ 19");
    c.P.TabCount = 25;
    CHECK(c.Bars() == "11 @ 14");
}

TEST_CASE("a control smaller than the reserve gives a negative number of bars, for the clamp only lowers") {
    Case c;
    c.W = 40;
    CHECK(c.Bars() == "-2 @ 0"); // -24 / 20 = -1.2, towards minus infinity
    c.Layout.FirstVisibleTab = 4;
    CHECK(c.Bars() == "-2 @ 4"); // 4 - 2 does not pass the count of 3
    c.Layout.FirstVisibleTab = 9;
    CHECK(c.Bars() == "-2 @ 5"); // 3 - -2
}

TEST_CASE("a BarWidth of 0 raises division by zero, 0 / 0 overflow") {
    Case c;
    c.P.BarWidth = 0;
    CHECK(NumberRaisedBy([&] { c.Bars(); }) == 11);
    c.W = 64;
    CHECK(NumberRaisedBy([&] { c.Bars(); }) == 6);
}

TEST_CASE("the error of a layout says what was to be laid out") {
    Case c;
    c.P.BarWidth = 0;
    CHECK(TextRaisedBy([&] { c.Bars(); }) == "No layout for BarWidth = 0, TabCount = 3 on " +
                                                 std::to_string(c.W) + " x " + std::to_string(c.H) +
                                                 " pixels: Division by zero");
    c.P.BarWidth = 20;
    c.P.TabPos = WindowBottom;
    c.Rects[BRect].Height = INT32_MIN;
    CHECK(TextRaisedBy([&] { c.Compute(); }).ends_with(" pixels: Overflow"));
}

TEST_CASE("a number of bars beyond 16 bits raises overflow, and the layout stays as it was") {
    Case c;
    c.P.BarWidth = 1;
    c.P.TabCount = 5;
    c.Compute();
    const LayoutRect before = c.Layout.BarStripRect;
    c.W = 32767 + 64 + 1;
    CHECK(NumberRaisedBy([&] { c.Compute(); }) == 6);
    CHECK(c.Layout.VisibleBarCount == 5);
    CHECK(c.Layout.BarStripRect == before);
    c.W = 32767 + 64;
    CHECK(NumberRaisedBy([&] { c.Compute(); }) == 0);
}

TEST_CASE("first visible tab plus number of bars is a 16-bit sum") {
    Case c;
    c.Layout.FirstVisibleTab = 32767;
    CHECK(NumberRaisedBy([&] { c.Bars(); }) == 6);
}

TEST_CASE("no tabs give no bars and a strip of zero length at the placement's leading edge") {
    Case c;
    c.P.TabCount = 0;
    CHECK(c.Bars() == "0 @ 0");
    CHECK(c.Strip() == "6,0-6,22");
}

TEST_CASE("the strip on top") {
    Case c; // three bars of 20
    CHECK(c.StripAt(Windowtop, TabLeft) == "6,0-66,22");
    CHECK(c.StripAt(Windowtop, TabMiddle) == "120,0-180,22");
    CHECK(c.StripAt(Windowtop, TabRight) == "228,0-288,22"); // less RRightBottom's width
    c.P.FrameDist = 10;
    c.P.TabBarPosXJust = 3;
    c.P.TabBarPosYJust = -4;
    CHECK(c.StripAt(Windowtop, TabLeft) == "19,6-79,28");
    CHECK(c.StripAt(Windowtop, TabMiddle) == "133,6-193,28");
    CHECK(c.StripAt(Windowtop, TabRight) == "225,6-285,28"); // the adjustment counts backwards
}

TEST_CASE("the strip on the bottom") {
    Case c;
    CHECK(c.StripAt(WindowBottom, TabLeft) == "9,178-69,200");
    c.P.FrameDist = 10; // does not lift the strip
    c.P.TabBarPosXJust = 3;
    c.P.TabBarPosYJust = -4;
    CHECK(c.StripAt(WindowBottom, TabLeft) == "22,174-82,196");
    CHECK(c.StripAt(WindowBottom, TabMiddle) == "133,174-193,196");
    CHECK(c.StripAt(WindowBottom, TabRight) == "228,174-288,196"); // without the adjustment, unlike on top
}

TEST_CASE("the strip on the left") {
    Case c;
    CHECK(c.StripAt(WindowLeft, TabLeft) == "0,7-22,67");
    c.P.FrameDist = 10; // shifts across, not along
    c.P.TabBarPosXJust = 3;
    c.P.TabBarPosYJust = -4;
    CHECK(c.StripAt(WindowLeft, TabLeft) == "13,3-35,63");
    CHECK(c.StripAt(WindowLeft, TabMiddle) == "13,66-35,126");
    CHECK(c.StripAt(WindowLeft, TabRight) == "13,130-35,190"); // less RLeftBottom's height
}

TEST_CASE("the strip on the right") {
    Case c;
    CHECK(c.StripAt(WindowRight, TabLeft) == "278,8-300,68");
    c.P.FrameDist = 10; // not at all
    c.P.TabBarPosXJust = 3;
    c.P.TabBarPosYJust = -4;
    CHECK(c.StripAt(WindowRight, TabLeft) == "281,4-303,64");
    CHECK(c.StripAt(WindowRight, TabMiddle) == "281,66-303,126");
    CHECK(c.StripAt(WindowRight, TabRight) == "281,128-303,188"); // less RRightBottom's width, not its height
}

TEST_CASE("TabMiddle rounds half to even on the whole sum") {
    Case c;
    const auto leadingEdge = [&](std::int32_t leftover, std::int16_t shift) {
        c.P.TabBarPosXJust = shift;
        c.W = 400 + leftover;
        c.P.BarWidth = 100;
        c.P.TabCount = 4;
        c.P.TabBarPos = TabMiddle;
        c.Layout.VisibleBarCount = 4;
        c.Layout.IsHorizontal = True;
        return ComputeLayout(c.Input(), c.Layout).BarStripRect.Left;
    };
    CHECK(leadingEdge(5, 0) == 2);
    CHECK(leadingEdge(7, 0) == 4);
    CHECK(leadingEdge(5, 1) == 4); // 2.5 + 1 = 3.5
    CHECK(leadingEdge(7, 1) == 4); // 3.5 + 1 = 4.5
    CHECK(leadingEdge(-5, 0) == -2);
}

TEST_CASE("TabCustom keeps the leading edge of the previous layout and computes the rest anew") {
    Case c;
    CHECK(c.StripAt(Windowtop, TabCustom) == "0,0-60,22"); // zero on a fresh control
    c.StripAt(Windowtop, TabMiddle);
    c.P.TabCount = 4;
    c.P.TabBarPosYJust = 5;
    CHECK(c.StripAt(Windowtop, TabCustom) == "120,5-200,27");
    CHECK(c.StripAt(WindowLeft, TabCustom) == "0,5-22,85"); // the leading edge is now the top, which was 5
}

TEST_CASE("the frame is inset once at the left and the top, twice at the right and the bottom") {
    Case c;
    c.P.FrameDist = 10;
    c.Compute();
    CHECK(Text(c.Layout.ControlRect) == "0,0-300,200");
    CHECK(Text(c.Layout.FrameRect) == "10,10-280,180");
    CHECK(c.Layout.FrameRect.Width == 270);
    CHECK(c.Layout.FrameRect.Height == 170);
}

TEST_CASE("band and page on each side") {
    Case c;
    c.P.FrameDist = 10;
    c.P.TabBarPosXJust = 3;
    c.P.TabBarPosYJust = 4;
    CHECK(c.BandAndPage(Windowtop) == "10,14-280,24 | 10,24-280,178");
    CHECK(c.BandAndPage(WindowBottom) == "10,194-280,216 | 10,10-280,193");
    // On the left the band ends FrameDist + T - 1 from the control's edge wherever the strip is, and both side bands
    // end at the frame's height, not at its bottom.
    CHECK(c.BandAndPage(WindowLeft) == "13,10-20,170 | 23,10-280,178");
    CHECK(c.BandAndPage(WindowRight) == "293,10-21,170 | 10,10-293,178");
}

TEST_CASE("no rectangle is clamped") {
    Case c;
    c.W = c.H = 10;
    c.P.FrameDist = 20;
    c.Compute();
    CHECK(c.Layout.FrameRect.Width == -50);
    CHECK(c.Layout.ClientRect.Height < 0);
}

TEST_CASE("a side that does not exist leaves strip, band and page as they were") {
    Case c;
    c.Compute();
    const LayoutCache before = c.Layout;
    c.W = 500;
    c.BandAndPage(77);
    CHECK(c.Layout.BarStripRect == before.BarStripRect);
    CHECK(c.Layout.BarBandRect == before.BarBandRect);
    CHECK(c.Layout.ClientRect == before.ClientRect);
    CHECK(c.Layout.ControlRect.Width == 500);
}

TEST_CASE("a coordinate beyond 32 bits raises overflow") {
    Case c;
    SetSize(c.Rects[BRect], 1, 2147483647);
    CHECK(NumberRaisedBy([&] { c.Compute(); }) == 0);
    c.P.TabBarPosYJust = 1;
    CHECK(NumberRaisedBy([&] { c.Compute(); }) == 6);
}

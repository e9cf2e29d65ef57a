#include "render/BarGeometry.h"

#include <doctest/doctest.h>

#include <random>
#include <set>

#include "tests/RunTimeErrors.h"
#include "tests/render/LayoutText.h"

using namespace vantik;
using namespace vantik::test;

namespace {

void SetSize(SkinRects& rects, std::int32_t index, std::int32_t width, std::int32_t height) {
    rects[index] = {100 * index, 0, 100 * index + width - 1, height - 1, width, height};
}

// A row of three bars of 40 x 22 at (6, 3), the second to fourth of ten tabs. Piece heights differ in every state.
ControlState Row(std::int32_t side = Windowtop) {
    ControlState c;
    c.Properties.TabCount = 10;
    c.Properties.TabPos = side;
    c.Properties.BarWidth = 40;
    c.Layout.FirstVisibleTab = 1;
    c.Layout.VisibleBarCount = 3;
    c.Layout.IsHorizontal = side == Windowtop || side == WindowBottom ? True : False;
    c.Layout.BarStripRect =
        c.Layout.IsHorizontal ? LayoutRect::FromEdges(6, 3, 126, 25) : LayoutRect::FromEdges(3, 6, 25, 126);
    for (std::int32_t s = 0; s < 3; ++s) {
        SetSize(c.SkinRects, FillPic0 + s, 1, 18 + s);
        SetSize(c.SkinRects, LeftPic0 + s, 4 + s, 16 + s);
        SetSize(c.SkinRects, RightPic0 + s, 7 + s, 14 + s);
        SetSize(c.SkinRects, Line0 + s, 2, 20 - s);
    }
    return c;
}

// Each piece as "skin column/100: u,v length x thickness", in painting order.
std::string Pieces(const ControlState& c, std::int16_t index, std::uint8_t state) {
    const auto n = [](std::int32_t value) { return std::to_string(value); };
    std::string text;
    for (const BarPiece& p : PiecesOf(c, index, state))
        text += n(p.Source.Left / 100) + (p.IsFill ? "f" : "") + ": " + n(p.U) + "," + n(p.V) + " " +
                n(p.Length) + "x" + n(p.Thickness) + "; ";
    return text;
}

} // namespace

TEST_CASE("with TabBorder every bar has both edges, and TabToTab is taken off the end of its slot") {
    ControlState c = Row();
    c.Properties.TabBorder = True;
    c.Properties.TabToTab = 3;
    CHECK(Pieces(c, 2, 0) == "2f: 4,2 26x18; 5: 0,2 4x16; 8: 30,2 7x14; ");
    CHECK(Pieces(c, 2, 2) ==
          "4f: 6,0 22x20; 7: 0,0 6x18; 10: 28,0 9x16; "); // the active look has its own pieces
    CHECK(Pieces(c, 1, 1) == Pieces(c, 3, 1));
}

TEST_CASE("without TabBorder only the row's ends carry end pieces and separators stand between") {
    ControlState c = Row();
    c.Properties.TabToTab = 3; // plays no part
    CHECK(Pieces(c, 1, 0) == "2f: 4,2 34x18; 5: 0,2 4x16; 11: 38,-2 2x20; ");
    CHECK(Pieces(c, 2, 0) == "2f: 0,2 38x18; 11: 38,-2 2x20; ");
    CHECK(Pieces(c, 3, 0) == "2f: 0,2 33x18; 8: 33,2 7x14; ");
}

TEST_CASE("a bar in state 2 (active) uses FillPic2, LeftPic2, RightPic2 and Line2") {
    ControlState c = Row();
    CHECK(Pieces(c, 1, BarActive) == "4f: 6,0 32x20; 7: 0,0 6x18; 13: 38,0 2x18; ");
    CHECK(Pieces(c, 2, BarActive) == "4f: 0,0 38x20; 13: 38,0 2x18; ");
    CHECK(Pieces(c, 3, BarActive) == "4f: 0,0 31x20; 10: 31,0 9x16; ");
}

TEST_CASE("a single bar has both ends") {
    ControlState c = Row();
    c.Layout.VisibleBarCount = 1;
    CHECK(Pieces(c, 1, 0) == "2f: 4,2 29x18; 5: 0,2 4x16; 8: 33,2 7x14; ");
}

TEST_CASE("any other TabBorder value has no pieces") {
    ControlState c = Row();
    c.Properties.TabBorder = 1;
    CHECK(Pieces(c, 1, 0) == "");
}

TEST_CASE("a bar shorter than its ends has no fill") {
    ControlState c = Row();
    c.Properties.TabBorder = True;
    c.Properties.BarWidth = 10;
    CHECK(Pieces(c, 1, 0) == "5: 0,2 4x16; 8: 3,2 7x14; ");
}

TEST_CASE("pieces that the skin does not have are left out") {
    ControlState c = Row();
    c.SkinRects = {};
    CHECK(Pieces(c, 1, 2) == "");
}

TEST_CASE("a state whose pieces leave the skin table raises subscript out of range") {
    ControlState c = Row();
    c.Properties.TabBorder = True;
    CHECK(NumberRaisedBy([&] { PiecesOf(c, 1, 24); }) == 9);
    CHECK(NumberRaisedBy([&] { PiecesOf(c, 1, 18); }) == 9); // the right end's index
    CHECK(NumberRaisedBy([&] { PiecesOf(c, 1, 17); }) == 0);
}

TEST_CASE("slots follow each other at a pitch of BarWidth on every side") {
    CHECK(Text(SlotRect(Row(Windowtop), 2)) == "86,3-126,25");
    CHECK(Text(SlotRect(Row(WindowBottom), 2)) == "86,3-126,25");
    CHECK(Text(SlotRect(Row(WindowLeft), 2)) == "3,86-25,126");
    CHECK(Text(SlotRect(Row(WindowRight), 2)) == "3,86-25,126");
    ControlState c = Row();
    c.Properties.TabToTab = 3;
    CHECK(Text(BarRect(c, 2)) == "86,3-123,25");
}

TEST_CASE(
    "a part of a bar is flipped to the bottom, transposed to the left and turned clockwise to the right") {
    const auto part = [](std::int32_t side) { return Text(PartRect(Row(side), 1, 5, 2, 10, 4)); };
    CHECK(part(Windowtop) == "51,5-61,9");
    CHECK(part(WindowBottom) == "51,19-61,23");
    CHECK(part(WindowLeft) == "5,51-9,61");
    CHECK(part(WindowRight) == "19,51-23,61");
    CHECK(part(9) == "0,0-0,0");
}

TEST_CASE("all four bounds of a rectangle are inside") {
    const LayoutRect r = LayoutRect::FromEdges(2, 3, 10, 12);
    CHECK(PointInRect(2, 3, r));
    CHECK(PointInRect(10, 12, r));
    CHECK(PointInRect(10, 3, r));
    CHECK_FALSE(PointInRect(10.5f, 5, r));
    CHECK_FALSE(PointInRect(5, 2.75f, r));
}

TEST_CASE("the point at exactly k x BarWidth along the strip belongs to slot k") {
    const ControlState c = Row();
    CHECK(BarSlotAt(79, 500, c) == 1);
    CHECK(BarSlotAt(80, 500, c) == 2);
    CHECK(BarSlotAt(79.5f, 0, c) == 2); // rounded first, half to even
    CHECK(BarSlotAt(-39, 0, c) == 0);   // whole-number division goes towards zero
    CHECK(BarSlotAt(500, 80, Row(WindowLeft)) == 2);
}

TEST_CASE("finding a slot with a BarWidth of 0 raises division by zero, beyond 32 bits overflow") {
    ControlState c = Row();
    CHECK(NumberRaisedBy([&] { BarSlotAt(3e9f, 0, c); }) == 6);
    c.Properties.BarWidth = -1;
    CHECK(NumberRaisedBy([&] { BarSlotAt(-2147483648.0f, 0, c); }) == 6);
    c.Properties.BarWidth = 0;
    CHECK(NumberRaisedBy([&] { BarSlotAt(1, 1, c); }) == 11);
    CHECK(TextRaisedBy([&] { BarSlotAt(1, 1, c); }) == "BarWidth is 0");
}

TEST_CASE("every pixel of a slot hits that slot on every side") {
    for (const std::int32_t side : {WindowLeft, WindowRight, Windowtop, WindowBottom}) {
        const ControlState c = Row(side);
        const LayoutRect& strip = c.Layout.BarStripRect;
        std::set<std::int32_t> wrong;
        for (std::int32_t slot = 0; slot < 3; ++slot) {
            const LayoutRect r = SlotRect(c, slot);
            for (std::int32_t y = r.Top; y < r.Bottom; ++y)
                for (std::int32_t x = r.Left; x < r.Right; ++x)
                    if (!PointInRect(float(x), float(y), strip) ||
                        BarSlotAt(float(x - strip.Left), float(y - strip.Top), c) != slot)
                        wrong.insert(slot);
        }
        CHECK(wrong.empty());
    }
}

TEST_CASE("the slot of a tab is a 16-bit difference") {
    ControlState c = Row();
    c.Layout.FirstVisibleTab = -10;
    CHECK(NumberRaisedBy([&] { SlotOf(c, 32767); }) == 6);
    CHECK(SlotOf(c, 5) == 15);
    CHECK_FALSE(IsVisibleSlot(c, 3));
    CHECK_FALSE(IsVisibleSlot(c, -1));
    CHECK(IsVisibleSlot(c, 2));
}

TEST_CASE("the band of a look's fill stands on the strip's inner edge on every side") {
    CHECK(Text(FillBand(Row(Windowtop), 1, BarNormal)) == "46,5-86,23");
    CHECK(Text(FillBand(Row(WindowBottom), 1, BarNormal)) == "46,5-86,23");
    CHECK(Text(FillBand(Row(WindowLeft), 1, BarNormal)) == "5,46-23,86");
    CHECK(Text(FillBand(Row(WindowRight), 1, BarActive)) == "5,46-25,86");
}

TEST_CASE("checking a bar raises what painting it would") {
    ControlState c = Row(WindowLeft);
    c.Tabs.Resize(10);
    const auto check = [&](std::int16_t index, std::uint8_t state) {
        return NumberRaisedBy([&] { CheckBar(c, index, state); });
    };
    CHECK(check(10, BarActive) == 0); // the spare record
    CHECK(check(11, BarActive) == 9);
    CHECK(check(-1, BarNormal) == 9);
    CHECK(check(1, 24) == 9);
    SetSize(c.SkinRects, FillPic0, 1, 32768);
    CHECK(check(1, BarNormal) == 6); // turned pixel by pixel, counted in 16 bits
    CHECK(TextRaisedBy([&] { CheckBar(c, 1, BarNormal); }) == "A piece of a bar cannot have 32768 pixels");
    c.Properties.TabPos = Windowtop;
    CHECK(check(1, BarNormal) == 0);
}

namespace {

class Extremes {
public:
    explicit Extremes(std::uint32_t seed) : random_(seed) {}

    // Mostly just inside the given magnitude, of either sign, now and then just outside it.
    std::int32_t Near(std::int32_t most) {
        const std::int32_t outside = Below(200) == 0 ? 1 : 0;
        return (most - Below(3) + 3 * outside) * (Below(2) ? 1 : -1);
    }
    std::int32_t Below(std::int32_t end) { return std::uniform_int_distribution(0, end - 1)(random_); }

    ControlState State() {
        ControlState c;
        c.Properties.TabCount = 32766;
        c.Tabs.Resize(32766);
        c.Properties.TabPos = Below(4);
        c.Properties.TabBorder = Below(2) ? True : False;
        c.Properties.BarWidth = static_cast<std::int16_t>(Near(1 << 13));
        c.Properties.TabToTab = static_cast<std::int16_t>(Near(1 << 13));
        c.Layout.IsHorizontal = Below(2) ? True : False;
        c.Layout.VisibleBarCount = static_cast<std::int16_t>(Near(32766));
        const std::int32_t edge = 1 << 29;
        c.Layout.BarStripRect = {Near(edge), Near(edge), Near(edge), Near(edge), Near(edge), Near(edge)};
        for (std::int32_t i = FillPic0; i < RLeftTopPic; ++i) {
            c.SkinRects[i].Width = Near(1 << 12);
            c.SkinRects[i].Height = Near(1 << 12);
        }
        return c;
    }

private:
    std::mt19937 random_;
};

} // namespace

TEST_CASE("checking bars whose numbers are plain raises nothing, however near to the limits they are") {
    constexpr std::uint32_t seed = 4711;
    INFO("seed ", seed);
    Extremes extremes(seed);
    int plain = 0;
    for (int round = 0; round < 3000; ++round) {
        const ControlState c = extremes.State();
        if (!AreBarsPlain(c)) continue;
        ++plain;
        for (const std::int32_t slot : {0, 1, c.Layout.VisibleBarCount / 2, c.Layout.VisibleBarCount - 1})
            for (std::uint8_t state = 0; state < 3 && IsVisibleSlot(c, slot); ++state)
                REQUIRE(NumberRaisedBy([&] { CheckBar(c, static_cast<std::int16_t>(slot), state); }) == 0);
    }
    CHECK(plain > 1000);
    CHECK(plain < 3000);
}

TEST_CASE("bars are not plain without a record for each, or with a number far from usual") {
    ControlState c = Row();
    c.Tabs.Resize(3);
    CHECK(AreBarsPlain(c));
    c.Tabs.Resize(2);
    CHECK_FALSE(AreBarsPlain(c));
    c.Tabs.Resize(3);
    c.Layout.FirstVisibleTab = -1;
    CHECK_FALSE(AreBarsPlain(c));
    c.Layout.FirstVisibleTab = 1;
    c.SkinRects[Line0 + 2].Height = 1 << 20;
    CHECK_FALSE(AreBarsPlain(c));
    c.SkinRects[Line0 + 2].Height = 1;
    c.Properties.BarWidth = 32767;
    CHECK_FALSE(AreBarsPlain(c));
}

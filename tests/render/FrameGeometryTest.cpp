#include "render/FrameGeometry.h"

#include <doctest/doctest.h>

#include "tests/RunTimeErrors.h"
#include "tests/render/LayoutText.h"

using namespace vantik;
using namespace vantik::test;

namespace {

struct Frame {
    LayoutCache Layout;
    SkinRects Rects;

    Frame() {
        Layout.ClientRect = LayoutRect::FromEdges(10, 20, 110, 80);
        Size(FLeftLine, 2, 1);
        Size(FRightLine, 3, 1);
        Size(FTopLine, 1, 4);
        Size(FBottomLine, 5, 6);
        Size(RLeftTopPic, 7, 8);
        Size(RRightTopPic, 9, 10);
        Size(RLeftBottom, 11, 12);
        Size(RRightBottom, 13, 14);
    }
    void Size(std::int32_t index, std::int32_t width, std::int32_t height) {
        Rects[index] = {0, 0, width - 1, height - 1, width, height};
    }
    std::string Parts(const std::array<FramePart, 4>& parts) const {
        std::string text;
        for (const FramePart& part : parts) text += Text(part.Destination) + " ";
        return text;
    }
};

} // namespace

TEST_CASE("the edges run along the page; the bottom edge's width places the right edge") {
    const Frame f;
    CHECK(f.Parts(FrameEdges(f.Layout, f.Rects)) == "10,20-12,80 105,20-108,80 10,20-110,24 10,80-110,86 ");
}

TEST_CASE(
    "the corners sit on the corners of the page, and the bottom pieces end where the bottom edge ends") {
    const Frame f;
    CHECK(f.Parts(FrameCorners(f.Layout, f.Rects)) == "10,20-17,28 101,20-110,30 10,74-21,86 97,72-110,86 ");
}

TEST_CASE("the picture lies inside the frame's edges") {
    const Frame f;
    CHECK(Text(PictureRect(f.Layout, f.Rects)) == "12,24-105,80");
}

TEST_CASE("coordinates of the edges are 16-bit values") {
    Frame f;
    f.Layout.ClientRect = LayoutRect::FromEdges(0, 0, 32767, 50);
    CHECK(NumberRaisedBy([&] { FrameEdges(f.Layout, f.Rects); }) == 0);
    f.Layout.ClientRect = LayoutRect::FromEdges(0, 0, 32768, 50);
    const RaisedError raised = ErrorRaisedBy([&] { FrameEdges(f.Layout, f.Rects); });
    CHECK(raised.Number == 6);
    CHECK(raised.Text == "The page's frame cannot reach to 32768 pixels");
}

TEST_CASE("an intersection of rectangles that do not meet is empty") {
    const LayoutRect a = LayoutRect::FromEdges(0, 0, 10, 10), b = LayoutRect::FromEdges(4, -5, 20, 3);
    CHECK(Text(Intersection(a, b)) == "4,0-10,3");
    CHECK(IsEmpty(Intersection(a, LayoutRect::FromEdges(10, 0, 20, 10))));
    CHECK(IsEmpty(Intersection(a, LayoutRect::FromEdges(50, 50, 20, 20))));
    CHECK(Intersection(a, a) == a);
}

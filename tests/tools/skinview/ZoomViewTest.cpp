#include "tools/skinview/model/ZoomView.h"

#include <doctest/doctest.h>

using namespace vantik;

namespace {

constexpr std::int32_t Margin = ZoomView::Margin;

bool Same(ViewPoint a, ViewPoint b) { return a.X == b.X && a.Y == b.Y; }

} // namespace

TEST_CASE("Each pixel of the bitmap is a square of points, and every point of it leads back") {
    const ZoomView view = {5, {7, 3}};
    for (std::int32_t x = -3; x < 4; ++x)
        for (std::int32_t inside = 0; inside < 5; ++inside)
            CHECK(view.ToPixel({Margin - 7 + x * 5 + inside, Margin - 3 + x * 5 + inside}).X == x);
    CHECK(Same(view.ToView(2, 4), {Margin - 7 + 10, Margin - 3 + 20}));
    CHECK(view.ToView(PixelBox{2, 4, 3, 6}) == PixelBox{Margin + 3, Margin + 17, Margin + 8, Margin + 27});
}

TEST_CASE("The fitting zoom is the largest that shows all of the bitmap") {
    CHECK(ZoomView::Fitting({100, 50}, {100 * 3 + 2 * Margin, 500}) == 3);
    CHECK(ZoomView::Fitting({100, 50}, {100 * 3 + 2 * Margin - 1, 500}) == 2);
    CHECK(ZoomView::Fitting({100, 50}, {900, 50 * 4 + 2 * Margin}) == 4);
    CHECK(ZoomView::Fitting({4000, 50}, {900, 500}) == 1);
    CHECK(ZoomView::Fitting({1, 1}, {900, 500}) == ZoomView::Most);
    CHECK(ZoomView::Fitting({0, 0}, {900, 500}) >= 1);
}

TEST_CASE("Zooming keeps the pixel under the pointer") {
    const ZoomView view = {4, {10, 20}};
    const ViewPoint pointer = {200, 120};
    const ViewPoint pixel = view.ToPixel(pointer);
    for (std::int32_t zoom = 1; zoom <= ZoomView::Most; ++zoom)
        CHECK(Same(view.ZoomedAt(pointer, zoom).ToPixel(pointer), pixel));
    CHECK(view.ZoomedAt(pointer, 0).Zoom == 1);
    CHECK(view.ZoomedAt(pointer, 99).Zoom == ZoomView::Most);
}

TEST_CASE("There is nothing to scroll to beyond the bitmap and its margins") {
    ZoomView view = {4, {9999, 9999}};
    view.StayInside({100, 50}, {300, 100});
    CHECK(Same(view.Scrolled, {400 + 2 * Margin - 300, 200 + 2 * Margin - 100}));
    view.Scrolled = {-5, -5};
    view.StayInside({100, 50}, {300, 100});
    CHECK(Same(view.Scrolled, {0, 0}));
    view.Scrolled = {50, 50};
    view.StayInside({10, 10}, {300, 300});
    CHECK(Same(view.Scrolled, {0, 0}));
}

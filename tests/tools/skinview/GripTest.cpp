#include "tools/skinview/model/Grip.h"

#include <doctest/doctest.h>

using namespace vantik;

namespace {

// Ten points a pixel, and pixel 0 at point 0.
const ZoomView View = {10, {ZoomView::Margin, ZoomView::Margin}};
constexpr ViewSize Bitmap = {50, 40};

// A large one, a small one in it, and one of the small one's size upon that.
const std::vector<Piece> Pieces = {
    {0, {10, 29, 10, 19}, 1}, {5, {12, 15, 12, 15}, 2}, {6, {12, 15, 12, 15}, 3}};

Grip By(std::int32_t piece, std::initializer_list<Edge> edges) {
    Grip grip = {piece, {}};
    for (const Edge edge : edges) grip.Holds[edge] = true;
    return grip;
}

} // namespace

TEST_CASE("Of pieces that lie one upon the other the smallest is seen, the chosen one before its equals") {
    CHECK(PieceAt(Pieces, NoPiece, {200, 150}, View) == 0);
    CHECK(PieceAt(Pieces, 0, {130, 130}, View) == 5);
    CHECK(PieceAt(Pieces, 6, {130, 130}, View) == 6);
    CHECK(PieceAt(Pieces, NoPiece, {99, 150}, View) == NoPiece);
    CHECK(PieceAt(Pieces, NoPiece, {100, 150}, View) == 0);
    CHECK(PieceAt(Pieces, NoPiece, {299, 199}, View) == 0);
    CHECK(PieceAt(Pieces, NoPiece, {300, 199}, View) == NoPiece);
}

TEST_CASE("A press takes an edge or a corner from a few points off, and the whole from the middle") {
    CHECK(GripAt(Pieces, 0, {103, 150}, View) == By(0, {LeftEdge}));
    CHECK(GripAt(Pieces, 0, {96, 150}, View) == By(0, {LeftEdge}));
    CHECK(GripAt(Pieces, 0, {302, 150}, View) == By(0, {RightEdge}));
    CHECK(GripAt(Pieces, 0, {200, 98}, View) == By(0, {TopEdge}));
    CHECK(GripAt(Pieces, 0, {200, 203}, View) == By(0, {BottomEdge}));
    CHECK(GripAt(Pieces, 0, {98, 203}, View) == By(0, {LeftEdge, BottomEdge}));
    CHECK(GripAt(Pieces, 0, {200, 150}, View) == Grip::Whole(0));
    CHECK_FALSE(GripAt(Pieces, 0, {80, 150}, View).has_value());
}

TEST_CASE("An edge of the chosen piece goes before what lies there, but its middle does not") {
    CHECK(GripAt(Pieces, 0, {140, 102}, View) == By(0, {TopEdge}));
    CHECK(GripAt(Pieces, 0, {140, 140}, View) == Grip::Whole(5));
    CHECK(GripAt(Pieces, 6, {118, 140}, View) == By(6, {LeftEdge}));
    CHECK(GripAt(Pieces, NoPiece, {118, 150}, View) == Grip::Whole(0));
}

TEST_CASE("Beside a piece its edge is held, too, where nothing else is") {
    CHECK(GripAt(Pieces, NoPiece, {97, 150}, View) == By(0, {LeftEdge}));
}

TEST_CASE("Of a piece one pixel wide both edges can be held, and the whole") {
    const std::vector<Piece> line = {{11, {20, 20, 10, 29}, 1}};
    CHECK(GripAt(line, 11, {200, 200}, View) == By(11, {LeftEdge}));
    CHECK(GripAt(line, 11, {210, 200}, View) == By(11, {RightEdge}));
    CHECK(GripAt(line, 11, {205, 200}, View) == Grip::Whole(11));
}

TEST_CASE("Where right stands before left, what is held is the number that is drawn there") {
    const std::vector<Piece> turned = {{1, {13, 0, 0, 21}, 1}};
    CHECK(GripAt(turned, 1, {138, 100}, View) == By(1, {LeftEdge}));
    CHECK(GripAt(turned, 1, {2, 100}, View) == By(1, {RightEdge}));
}

TEST_CASE("A drag moves what it holds") {
    const EdgeNumbers numbers = {10, 29, 10, 19};
    CHECK(Dragged(numbers, By(0, {LeftEdge}), 3, 9, Bitmap) == EdgeNumbers{13, 29, 10, 19});
    CHECK(Dragged(numbers, By(0, {RightEdge, TopEdge}), -4, -2, Bitmap) == EdgeNumbers{10, 25, 8, 19});
    CHECK(Dragged(numbers, Grip::Whole(0), -4, 2, Bitmap) == EdgeNumbers{6, 25, 12, 21});
}

TEST_CASE("It ends at the bitmap's edge and at the edge that faces it") {
    const EdgeNumbers numbers = {10, 29, 10, 19};
    CHECK(Dragged(numbers, By(0, {LeftEdge}), 99, 0, Bitmap) == EdgeNumbers{29, 29, 10, 19});
    CHECK(Dragged(numbers, By(0, {LeftEdge}), -99, 0, Bitmap) == EdgeNumbers{0, 29, 10, 19});
    CHECK(Dragged(numbers, By(0, {BottomEdge}), 0, 99, Bitmap) == EdgeNumbers{10, 29, 10, 39});
    CHECK(Dragged(numbers, By(0, {BottomEdge}), 0, -99, Bitmap) == EdgeNumbers{10, 29, 10, 10});
    CHECK(Dragged(numbers, Grip::Whole(0), 99, -99, Bitmap) == EdgeNumbers{30, 49, 0, 9});
}

TEST_CASE("Edges that stand the wrong way round may go anywhere in the bitmap") {
    const EdgeNumbers numbers = {13, 0, 0, 21};
    CHECK(Dragged(numbers, By(1, {LeftEdge}), 99, 0, Bitmap) == EdgeNumbers{49, 0, 0, 21});
    CHECK(Dragged(numbers, By(1, {RightEdge}), 20, 0, Bitmap) == EdgeNumbers{13, 20, 0, 21});
    CHECK(Dragged(numbers, Grip::Whole(1), 99, 0, Bitmap) == EdgeNumbers{49, 36, 0, 21});
}

TEST_CASE(
    "A piece outside the bitmap comes in, and none is pushed about by a drag along the other direction") {
    const EdgeNumbers outside = {60, 69, 10, 19};
    CHECK(Dragged(outside, Grip::Whole(0), 0, 1, Bitmap) == EdgeNumbers{60, 69, 11, 20});
    CHECK(Dragged(outside, Grip::Whole(0), -30, 0, Bitmap) == EdgeNumbers{30, 39, 10, 19});
    CHECK(Dragged(outside, By(0, {TopEdge}), 0, 1, Bitmap) == EdgeNumbers{60, 69, 11, 19});
    CHECK(Dragged(outside, By(0, {RightEdge, TopEdge}), 0, 1, Bitmap) == EdgeNumbers{60, 69, 11, 19});
    CHECK(Dragged({-5, 4, 10, 19}, Grip::Whole(0), 0, 1, Bitmap) == EdgeNumbers{-5, 4, 11, 20});
}

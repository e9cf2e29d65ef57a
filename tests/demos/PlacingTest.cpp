#include "demos/form/design/model/Placing.h"

#include <doctest/doctest.h>

#include <string>

using namespace vantik;

namespace {

constexpr PageRules Coarse = {{1, 0, 399, 300}, 4, 8};
constexpr PageRules Fine = {{1, 0, 399, 300}, 1, 8};
constexpr Box Child = {41, 62, 80, 20}; // beside the grid

std::string Text(const Box& box) {
    return std::to_string(box.Left) + "," + std::to_string(box.Top) + " " + std::to_string(box.Width) + "x" +
           std::to_string(box.Height);
}

} // namespace

TEST_CASE("Eight handles straddle the edges, clockwise from the upper left corner") {
    const auto handles = HandlesOf({40, 60, 80, 20}, 6);
    const char* expected[] = {"37,57 6x6",  "77,57 6x6", "117,57 6x6", "117,67 6x6",
                              "117,77 6x6", "77,77 6x6", "37,77 6x6",  "37,67 6x6"};
    for (std::size_t i = 0; i < HandleCount; ++i) CHECK(Text(handles[i]) == expected[i]);
}

TEST_CASE("A handle is held at each of its pixels and beside it at none") {
    const Box child = {40, 60, 80, 20};
    CHECK(HandleAt(child, 6, {37, 57}) == Handle::TopLeft);
    CHECK(HandleAt(child, 6, {42, 62}) == Handle::TopLeft);
    CHECK(HandleAt(child, 6, {120, 70}) == Handle::Right);
    CHECK(HandleAt(child, 6, {122, 82}) == Handle::BottomRight);
    CHECK_FALSE(HandleAt(child, 6, {36, 57}));
    CHECK_FALSE(HandleAt(child, 6, {43, 63}));
    CHECK_FALSE(HandleAt(child, 6, {80, 70}));
}

TEST_CASE("A child moves by lines of the grid, and not at all where the pointer does not") {
    CHECK(Text(Moved(Child, 9, 0, Coarse)) == "52,62 80x20"); // 50 is as near to 52 as to 48
    CHECK(Text(Moved(Child, 8, -3, Coarse)) == "48,60 80x20");
    CHECK(Text(Moved(Child, 0, 0, Coarse)) == Text(Child));
    CHECK(Text(Moved(Child, 1, 1, Fine)) == "42,63 80x20");
}

TEST_CASE("A child stays on its page") {
    CHECK(Text(Moved(Child, -500, -500, Coarse)) == "1,0 80x20");
    CHECK(Text(Moved(Child, 500, 500, Fine)) == "320,280 80x20");
    CHECK(Text(Moved({41, 62, 1000, 1000}, 7, 7, Fine)) == "1,0 1000x1000"); // that does not fit
}

TEST_CASE("A handle moves the edges that it is on") {
    const auto resized = [](Handle handle) { return Text(Resized(Child, handle, -6, 6, Fine)); };
    CHECK(resized(Handle::TopLeft) == "35,68 86x14");
    CHECK(resized(Handle::Top) == "41,68 80x14");
    CHECK(resized(Handle::TopRight) == "41,68 74x14");
    CHECK(resized(Handle::Right) == "41,62 74x20");
    CHECK(resized(Handle::BottomRight) == "41,62 74x26");
    CHECK(resized(Handle::Bottom) == "41,62 80x26");
    CHECK(resized(Handle::BottomLeft) == "35,62 86x26");
    CHECK(resized(Handle::Left) == "35,62 86x20");
    CHECK(Text(Resized(Child, Handle::BottomRight, 4, 5, Coarse)) == "41,62 83x26"); // edges at 124 and 88
}

TEST_CASE("Edges do not pass each other, nor leave the page") {
    CHECK(Text(Resized(Child, Handle::TopLeft, 500, 500, Fine)) == "113,74 8x8");
    CHECK(Text(Resized(Child, Handle::BottomRight, -500, -500, Fine)) == "41,62 8x8");
    CHECK(Text(Resized(Child, Handle::TopLeft, -500, -500, Fine)) == "1,0 120x82");
    CHECK(Text(Resized(Child, Handle::BottomRight, 500, 500, Coarse)) == "41,62 359x238");
}

TEST_CASE("A rectangle is drawn between any two corners") {
    const auto drawn = [](Spot from, Spot to) {
        const auto box = Drawn(from, to, Coarse);
        return box ? Text(*box) : "none";
    };
    CHECK(drawn({41, 62}, {121, 83}) == "40,64 80x20");
    CHECK(drawn({121, 83}, {41, 62}) == "40,64 80x20");
    CHECK(drawn({41, 62}, {43, 200}) == "none"); // a press that slipped
    CHECK(drawn({-50, -50}, {1000, 1000}) == "1,0 399x300");
}

TEST_CASE("What is dropped by a press keeps its size on the page") {
    CHECK(Text(Dropped({41, 62}, 80, 20, Coarse)) == "40,64 80x20");
    CHECK(Text(Dropped({390, 295}, 80, 20, Coarse)) == "320,280 80x20");
    CHECK(Text(Dropped({0, 0}, 80, 20, Coarse)) == "1,0 80x20");
}

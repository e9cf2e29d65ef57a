// Where tooltips stand, by numbers.
#include "ole/accessible/TipPlace.h"

#include <doctest/doctest.h>

namespace vantik {

namespace {

constexpr RECT Screen = {0, 0, 1000, 800}, Bar = {400, 300, 460, 322};
constexpr RECT Pointer = {430, 310, 442, 330}; // reaches below the bar
constexpr SIZE Tip = {100, 20};

bool IsAt(POINT place, LONG x, LONG y) { return place.x == x && place.y == y; }

} // namespace

TEST_CASE("a tooltip stands beyond the bar on the side of the row, off bar and pointer") {
    CHECK(IsAt(TipPlace(Bar, Pointer, Tip, Windowtop, Screen), 400, 278));
    CHECK(IsAt(TipPlace(Bar, Pointer, Tip, WindowBottom, Screen), 400, 332));
    CHECK(IsAt(TipPlace(Bar, Pointer, Tip, WindowLeft, Screen), 298, 300));
    CHECK(IsAt(TipPlace(Bar, Pointer, Tip, WindowRight, Screen), 462, 300));
}

TEST_CASE("where the screen has no room there it stands on the other side") {
    const RECT topLeft = {0, 0, 60, 22}, bottomRight = {940, 778, 1000, 800};
    CHECK(IsAt(TipPlace(topLeft, {}, Tip, Windowtop, Screen), 0, 24));
    CHECK(IsAt(TipPlace(topLeft, {}, Tip, WindowLeft, Screen), 62, 0));
    CHECK(IsAt(TipPlace(bottomRight, {}, Tip, WindowBottom, Screen), 900, 756));
    CHECK(IsAt(TipPlace(bottomRight, {}, Tip, WindowRight, Screen), 838, 778));
}

TEST_CASE("a tooltip stays on the screen, its beginning before its end") {
    CHECK(IsAt(TipPlace({950, 300, 1010, 322}, {}, Tip, Windowtop, Screen), 900, 278));
    CHECK(IsAt(TipPlace({-50, 300, 10, 322}, {}, Tip, Windowtop, Screen), 0, 278));
    CHECK(IsAt(TipPlace(Bar, {}, {2000, 900}, Windowtop, Screen), 0, 0));
    CHECK(IsAt(TipPlace(Bar, {}, {2000, 900}, WindowRight, Screen), 0, 0));
}

TEST_CASE("on a screen beside the first one it stays there, too") {
    const RECT left = {-1000, 0, 0, 800};
    CHECK(IsAt(TipPlace({-30, 0, 0, 22}, {}, Tip, Windowtop, left), -100, 24));
    CHECK(IsAt(TipPlace({-1000, 50, -978, 110}, {}, Tip, WindowLeft, left), -976, 50));
}

TEST_CASE("a row on no side that there is counts as one on the top") {
    CHECK(IsAt(TipPlace(Bar, Pointer, Tip, 17, Screen), 400, 278));
}

} // namespace vantik

#include "tests/render/FakeUserControl.h"

#include <doctest/doctest.h>

#include "tests/RunTimeErrors.h"

using namespace vantik;
using namespace vantik::test;

TEST_CASE("the fake host's surface keeps what is painted until it is cleared") {
    FakeUserControl host(5, 4);
    SetPixel(host.hDC(), 2, 1, RGB(1, 2, 3));
    CHECK(host.Read().At(2, 1) == 0x010203);
    host.Cls();
    CHECK(host.Read() == Pixels(5, 4, host.BackColour));
    CHECK(host.TakeLog() == "Cls");
}

TEST_CASE("the fake host tells what its window has to paint") {
    FakeUserControl host(50, 40, true);
    CHECK(host.TakeInvalidated() == "");
    const RECT area = {1, 2, 30, 20};
    InvalidateRect(host.hWnd(), &area, TRUE);
    CHECK(host.TakeInvalidated() == "1,2,30,20");
    CHECK(host.TakeInvalidated() == "");
}

TEST_CASE("a handler of the fake host changes the arguments of an event") {
    FakeUserControl host(1, 1);
    host.On.TabDown = [](std::int16_t& index, std::int16_t&) { index = 7; };
    std::int16_t index = 1, button = 2;
    host.Events().TabDown(index, button);
    CHECK(index == 7);
    CHECK(host.TakeLog() == "TabDown 1 2");
}

TEST_CASE("a child of the fake host without a property raises no such member") {
    FakeUserControl host(1, 1);
    host.Children = {{.Name = u"List", .Left = 10}, {.Name = u"Frame", .Left = 0, .HasLeft = false}};
    const auto children = host.ChildControls();
    children[0]->Left(25);
    CHECK(host.Children[0].Left == 25);
    CHECK(NumberRaisedBy([&] { children[1]->Left(); }) == 438);
}

#include "model/Tabs.h"

#include <doctest/doctest.h>

#include "model/Skin.h"
#include "tests/RunTimeErrors.h"

using namespace vantik;

TEST_CASE("a new list holds one spare record that is not enabled") {
    Tabs tabs;
    CHECK(tabs.UpperBound() == 0);
    CHECK(tabs(0).Enable == False);
}

TEST_CASE("resizing preserves the records that stay") {
    Tabs tabs;
    tabs.Resize(3);
    tabs(2).Caption = u"kept";
    tabs.Resize(5);
    CHECK(tabs(2).Caption == u"kept");
    tabs.Resize(2);
    CHECK(tabs(2).Caption == u"kept");
}

TEST_CASE("shifting up makes room in front of the records that move") {
    Tabs tabs;
    tabs.Resize(3);
    for (std::int16_t i = 0; i < 3; ++i) tabs(i).Caption = static_cast<char16_t>(u'a' + i);
    tabs.ShiftUp(1, 3);
    CHECK(tabs(0).Caption == u"a");
    CHECK(tabs(1).Caption == u"b"); // stands in both places until somebody writes here
    CHECK(tabs(2).Caption == u"b");
    CHECK(tabs(3).Caption == u"c");
    tabs.ShiftUp(3, 3);
    CHECK(tabs(3).Caption == u"c");
}

TEST_CASE("an index outside the list raises subscript out of range") {
    Tabs tabs;
    tabs.Resize(2);
    CHECK(NumberRaisedBy([&] { tabs(3); }) == 9);
    CHECK(NumberRaisedBy([&] { tabs(-1); }) == 9);
    CHECK(NumberRaisedBy([&] { tabs.Resize(-1); }) == 9);
}

TEST_CASE("the skin table has 26 rectangles") {
    SkinRects rects;
    CHECK(rects[25] == SkinRect{});
    CHECK(NumberRaisedBy([&] { rects[26]; }) == 9);
    CHECK(NumberRaisedBy([&] { rects[-1]; }) == 9);
}

TEST_CASE("an icon index outside the list finds no icon") {
    SkinIcons icons;
    CHECK(icons.At(-1) == nullptr);
    CHECK(icons.At(0) == nullptr);
    icons.Append().Name = u"SUN";
    CHECK(icons.At(0)->Name == u"SUN");
    CHECK(icons.At(0)->Handles[5] == NoBitmap);
}

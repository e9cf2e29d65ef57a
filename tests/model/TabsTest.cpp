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

TEST_CASE("a moved record takes the other place and those between step aside") {
    Tabs tabs;
    tabs.Resize(4);
    for (std::int16_t i = 0; i <= 4; ++i)
        tabs(i).Caption = std::u16string(1, static_cast<char16_t>(u'0' + i));
    const auto captions = [&] {
        std::u16string all;
        for (std::int16_t i = 0; i <= tabs.UpperBound(); ++i) all += tabs(i).Caption;
        return all;
    };
    tabs.Move(1, 3);
    CHECK(captions() == u"02314");
    tabs.Move(4, 0);
    CHECK(captions() == u"40231");
    tabs.Move(2, 2);
    CHECK(captions() == u"40231");
    CHECK(NumberRaisedBy([&] { tabs.Move(0, 5); }) == 9);
    CHECK(NumberRaisedBy([&] { tabs.Move(-1, 0); }) == 9);
    CHECK(captions() == u"40231");
}

TEST_CASE("an index outside the list raises subscript out of range") {
    Tabs tabs;
    tabs.Resize(2);
    CHECK(NumberRaisedBy([&] { tabs(3); }) == 9);
    CHECK(NumberRaisedBy([&] { tabs(-1); }) == 9);
    CHECK(NumberRaisedBy([&] { tabs.Resize(-1); }) == 9);
}

TEST_CASE("the error of an index says which one it was and which ones there are") {
    Tabs tabs;
    CHECK(TextRaisedBy([&] { tabs(1); }) == "There is no tab 1: there are none");
    tabs.Resize(3);
    CHECK(TextRaisedBy([&] { tabs(4); }) == "There is no tab 4, only 0 to 2");
    CHECK(TextRaisedBy([&] { tabs.Move(0, -7); }) == "There is no tab -7, only 0 to 2");
    CHECK(TextRaisedBy([&] { tabs.Resize(-5); }) == "There cannot be -5 tabs");
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

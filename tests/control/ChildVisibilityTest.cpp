#include <doctest/doctest.h>

#include "tests/RunTimeErrors.h"
#include "tests/control/ControlFixture.h"

using namespace vantik;
using namespace vantik::test;

namespace {

// Three tabs 20000 apart, tab 0 active.
struct ThreeTabs : ControlFixture {
    ThreeTabs() : ControlFixture(3) {
        Control.Let<std::int32_t>(Property::TabOffSet, 20000);
        Control.ActiveTab(0);
    }
};

} // namespace

TEST_CASE("selecting tab 2 brings its children to their design positions and moves those of tab 0 away") {
    ThreeTabs f;
    f.AddChild(u"ofTab2", -39880);
    f.AddChild(u"ofTab0", 300);
    f.Control.ActiveTab(2);
    CHECK(f.Lefts() == "120 40300");
    f.Control.ActiveTab(0);
    CHECK(f.Lefts() == "-39880 300");
}

TEST_CASE(
    "a fixed child stays put whatever the case of its name; an entry with a leading blank names nobody") {
    ThreeTabs f;
    f.Control.Let<std::u16string>(Property::FixOcxList, u"btnOk, lblTitle");
    f.AddChild(u"btnok", 500);
    f.AddChild(u"lblTitle", 300);
    f.Control.ActiveTab(1);
    CHECK(f.Lefts() == "500 20300");
}

TEST_CASE("a name that is listed twice moves its control back twice") {
    ThreeTabs f; // required: each entry of the list moves what it names
    f.Control.Let<std::u16string>(Property::FixOcxList, u"cmd,cmd");
    f.AddChild(u"cmd", 50000);
    f.Control.ActiveTab(1);
    CHECK(f.Lefts() == "30000");
}

TEST_CASE("blanks around the whole list do not count, those around an entry do") {
    const auto leftAfterSwitch = [](const char16_t* list) {
        ThreeTabs f;
        f.Control.Let<std::u16string>(Property::FixOcxList, list);
        f.AddChild(u"fixed", 300);
        f.Control.ActiveTab(1);
        return f.Lefts();
    };
    CHECK(leftAfterSwitch(u"  fixed ") == "300");
    CHECK(leftAfterSwitch(u"x,fixed ") == "300");
    CHECK(leftAfterSwitch(u"fixed ,x") == "20300");
    CHECK(leftAfterSwitch(u"x, fixed") == "20300");
}

TEST_CASE("every member of a control array that shares the name stays") {
    ThreeTabs f;
    f.Control.Let<std::u16string>(Property::FixOcxList, u"cmd");
    f.AddChild(u"cmd", 100);
    f.AddChild(u"cmd", 200);
    f.Control.ActiveTab(2);
    CHECK(f.Lefts() == "100 200");
}

TEST_CASE("switching to the already active tab moves nothing") {
    ThreeTabs f;
    f.AddChild(u"child", 300);
    f.Control.ActiveTab(0);
    CHECK(f.Lefts() == "300");
}

TEST_CASE("a switch to the tab that is active already takes every step of a switch") {
    ThreeTabs f;
    f.Control.Let<std::u16string>(Property::FixOcxList, u"fixed");
    f.AddChild(u"fixed", 300);
    f.Control.ActiveTab(0); // takes the names out of the list
    f.Control.Let<std::u16string>(Property::FixOcxList, u"");
    f.Control.ActiveTab(1);
    CHECK(f.Lefts() == "300");
    f.Host.Children[0].HasLeft = false;
    CHECK(NumberRaisedBy([&] { f.Control.ActiveTab(1); }) == 438); // every child moves, if only by 0
}

TEST_CASE("with FixOcxList blank from the start every child moves") {
    ThreeTabs f;
    f.AddChild(u"", 300);
    f.Control.ActiveTab(1);
    CHECK(f.Lefts() == "20300");
}

TEST_CASE("emptying FixOcxList keeps the old names fixed") {
    ThreeTabs f;
    f.Control.Let<std::u16string>(Property::FixOcxList, u"fixed");
    f.AddChild(u"fixed", 300);
    f.Control.ActiveTab(1);
    f.Control.Let<std::u16string>(Property::FixOcxList, u"  ");
    f.Control.ActiveTab(2);
    CHECK(f.Lefts() == "300");
}

TEST_CASE("inserting a tab after tab 0 of three moves the children of tabs 1 and 2 on by one tab") {
    ThreeTabs f;
    f.AddChild(u"ofTab0", 300);
    f.AddChild(u"ofTab1", -19700);
    f.AddChild(u"ofTab2", -39700);
    f.Insert(0, u"New"); // and makes tab 1 active: everything stands one offset further right
    CHECK(f.Lefts() == "20300 -19700 -39700");
    f.Control.ActiveTab(0);
    CHECK(f.Lefts() == "300 -39700 -59700");
    CHECK(f.Captions() == "Tab0 New Tab1 Tab2");
}

TEST_CASE("removing tab 1 of three parks its children at three offsets") {
    ThreeTabs f;
    f.AddChild(u"ofTab0", 300);
    f.AddChild(u"ofTab1", -19700);
    f.AddChild(u"ofTab2", -39700);
    f.Control.RemoveTab(1);
    CHECK(f.Lefts() == "300 40300 -19700");
    // They remain in the container, where they count as tab 2 or higher: only they make room behind tab 1.
    CHECK(f.Host.Children[1].Visible == True);
    f.Insert(1, u"New");
    f.Control.ActiveTab(0);
    CHECK(f.Lefts() == "300 20300 -19700");
}

TEST_CASE("a child at exactly 0 counts for tab 1") {
    ThreeTabs f; // required: only a position greater than 0 belongs to tab 0
    f.AddChild(u"edge", 0);
    f.Control.RemoveTab(1);
    CHECK(f.Lefts() == "60000");
}

TEST_CASE(
    "a child's tab is told by its position rounded half to even, and by the sign of what it was before") {
    constexpr struct {
        std::int32_t Offset;
        double Left,
            AfterRemoval; // of tab 1 of three: its own children are parked three offsets on, later ones one
    } children[] = {
        {20000, 20000, 80000},        // tab 1
        {20000, 19999.5, 79999.5},    // 20000: tab 1
        {20000, 19999.25, 19999.25},  // tab 0
        {20001, 20000.5, 20000.5},    // 20000: tab 0
        {20000, 0.25, 0.25},          // greater than 0: tab 0
        {20000, -0.25, 59999.75},     // not greater: tab 1
        {20000, -19999.25, 40000.75}, // tab 1
        {20000, -19999.5, 0.5},       // 20000: tab 2
        {20000, -20000, 0},           // tab 2
    };
    for (const auto& [offset, left, afterRemoval] : children) {
        CAPTURE(left);
        ThreeTabs f;
        f.Control.Let<std::int32_t>(Property::TabOffSet, offset);
        f.AddChild(u"child", left);
        f.Control.RemoveTab(1);
        CHECK(f.Host.Children[0].Left == afterRemoval);
    }
}

TEST_CASE("a disabled target moves no child") {
    ThreeTabs f;
    f.AddChild(u"child", 300);
    f.Control.SetBarEnable(2, False);
    f.Control.ActiveTab(2);
    CHECK(f.Lefts() == "300");
}

TEST_CASE("setting TabOffSet does not move any child") {
    ThreeTabs f;
    f.AddChild(u"child", -19700);
    f.Control.Let<std::int32_t>(Property::TabOffSet, 5000);
    CHECK(f.Lefts() == "-19700");
}

TEST_CASE("a child without a needed property raises 438 to the caller") {
    ThreeTabs f;
    f.AddChild(u"child", 300).HasLeft = false;
    CHECK(NumberRaisedBy([&] { f.Control.ActiveTab(1); }) == 438);
    CHECK(f.Control.ActiveTab() == 0);
}

TEST_CASE("a nameless child matters only where names are compared") {
    ThreeTabs f;
    f.AddChild(u"child", 300).HasName = false;
    f.Control.ActiveTab(1);
    f.Control.Let<std::u16string>(Property::FixOcxList, u"fixed");
    CHECK(NumberRaisedBy([&] { f.Control.ActiveTab(0); }) == 438);
}

TEST_CASE("a TabOffSet of 0 cannot tell which tab a child belongs to") {
    ThreeTabs f;
    f.Control.Let<std::int32_t>(Property::TabOffSet, 0);
    f.AddChild(u"child", 300);
    const RaisedError raised = ErrorRaisedBy([&] { f.Insert(0, u"New"); });
    CHECK(raised.Number == 11);
    CHECK(raised.Text == "TabOffSet is 0: no child's tab can be told");
}

TEST_CASE("an offset too large for the distance overflows before anything moves") {
    ThreeTabs f;
    f.Control.Let<std::int32_t>(Property::TabOffSet, 2000000000);
    f.AddChild(u"child", 300);
    const RaisedError raised = ErrorRaisedBy([&] { f.Control.ActiveTab(2); });
    CHECK(raised.Number == 6);
    CHECK(raised.Text == "No way for the children from tab 0 to tab 2 with TabOffSet = 2000000000: Overflow");
    CHECK(f.Lefts() == "300");
}

TEST_CASE("a removal that has no place for the removed tab's children overflows and keeps the tab") {
    ControlFixture f(2);
    f.Control.ActiveTab(0);
    f.Control.Let<std::int32_t>(Property::TabOffSet, 2000000000);
    f.AddChild(u"ofTab1", -100);
    CHECK(NumberRaisedBy([&] { f.Control.RemoveTab(1); }) == 6);
    CHECK(f.Control.TabCount() == 2);
    CHECK(f.Captions() == "Tab0 Tab1");
    CHECK(f.Lefts() == "-100");
}

#include <doctest/doctest.h>

#include "tests/RunTimeErrors.h"
#include "tests/control/DrivenControl.h"

using namespace vantik;
using namespace vantik::test;

TEST_CASE("a freshly placed control reports TabCount 0 and ActiveTab -1") {
    const ControlFixture f;
    CHECK(f.Control.TabCount() == 0);
    CHECK(f.Control.ActiveTab() == -1);
}

TEST_CASE("setting TabCount to 3 on a fresh control creates Tab0, Tab1 and Tab2") {
    ControlFixture f;
    f.Control.TabCount(3);
    CHECK(f.Captions() == "Tab0 Tab1 Tab2");
    CHECK(f.Control.GetTabIco(2) == u"");
}

TEST_CASE("TabCount ignores values below 1 and its own value") {
    ControlFixture f(2);
    f.Control.TabCount(0);
    f.Control.TabCount(-4);
    f.Control.TabCount(2);
    CHECK(f.Control.TabCount() == 2);
    CHECK(f.Host.TakeLog().find("PropertyChanged") == std::string::npos);
}

TEST_CASE("TabCount is marked changed before the list is resized") {
    ControlFixture f(2);
    int marks = 0;
    f.Host.OnCall = [&] {
        if (marks++) return;
        CHECK(f.Control.TabCount() == 4);
        CHECK(f.Control.State().PreviousTabCount == 2);
        CHECK(f.Control.State().Tabs.UpperBound() == 2);
    };
    f.Control.TabCount(4);
    CHECK(marks > 0);
    CHECK(f.Control.State().Tabs.UpperBound() == 4);
}

TEST_CASE("raising TabCount adds enabled tabs with an empty icon and lowering it pulls ActiveTab back") {
    ControlFixture f(2);
    f.Control.TabCount(4);
    CHECK(f.Captions() == "Tab0 Tab1 Tab2 Tab3");
    CHECK(f.Control.State().PreviousTabCount == 2);
    f.Control.ActiveTab(3);
    f.AddChild(u"child", 120);
    f.Control.TabCount(1);
    CHECK(f.Control.ActiveTab() == 0);
    CHECK(f.Lefts() == "120"); // the children of dropped tabs stay
}

TEST_CASE("a tab raised again has a fresh caption and no icon") {
    ControlFixture f(2);
    f.Control.SetBarIco(1, u"sun");
    f.Control.TabCount(1);
    f.Control.TabCount(2);
    CHECK(f.Captions() == "Tab0 Tab2");
    CHECK(f.Control.GetTabIco(1) == u"");
}

TEST_CASE("InsertTab before the first or behind the last tab does nothing") {
    ControlFixture f(2);
    f.Insert(-1, u"x");
    f.Insert(2, u"x");
    CHECK(f.Captions() == "Tab0 Tab1");
    CHECK(f.Host.TakeLog().empty());
}

TEST_CASE("InsertTab after the last tab appends one and makes it active") {
    ControlFixture f(2);
    f.Insert(1, u"New");
    CHECK(f.Captions() == "Tab0 Tab1 New");
    CHECK(f.Control.ActiveTab() == 2);
    CHECK(f.Control.GetTabIco(2) == u"-1");
}

TEST_CASE("InsertTab with a blank caption names the tab and tells the caller") {
    ControlFixture f(3);
    f.Control.Let<std::u16string>(Property::DefaultCaption, u"Page");
    std::u16string caption = u"  ";
    f.Control.InsertTab(0, caption);
    CHECK(caption == u"Page3");
    CHECK(f.Captions() == "Tab0 Page3 Tab1 Tab2");
    CHECK(f.Control.State().NewTabNumber == 4);
}

TEST_CASE("InsertTab keeps a caption that is not blank as it stands") {
    ControlFixture f(1);
    std::u16string caption = u" a ";
    f.Control.InsertTab(0, caption);
    CHECK(f.Control.GetTabCaption(1) == u" a ");
    CHECK(f.Control.State().NewTabNumber == 1);
}

TEST_CASE("InsertTab marks ActiveTab changed, but not TabCount") {
    ControlFixture f(1);
    f.Insert(0);
    const std::string log = f.Host.TakeLog();
    CHECK(log.find("PropertyChanged ActiveTab") != std::string::npos);
    CHECK(log.find("PropertyChanged TabCount") == std::string::npos);
    CHECK(f.Control.State().PreviousTabCount == 0);
}

TEST_CASE("RemoveTab with one tab does nothing") {
    ControlFixture f(1);
    f.Control.RemoveTab(0);
    CHECK(f.Captions() == "Tab0");
}

TEST_CASE("RemoveTab out of range does nothing") {
    ControlFixture f(2);
    f.Control.RemoveTab(2);
    f.Control.RemoveTab(-1);
    CHECK(f.Captions() == "Tab0 Tab1");
}

TEST_CASE("removing the active tab leaves tab 0 active") {
    ControlFixture f(3);
    f.Control.ActiveTab(1);
    f.Control.RemoveTab(1);
    CHECK(f.Captions() == "Tab0 Tab2");
    CHECK(f.Control.ActiveTab() == 0);
}

TEST_CASE("RemoveTab with tab 0 disabled sets ActiveTab one past the last tab") {
    ControlFixture f(3);
    f.Control.ActiveTab(2);
    f.Control.SetBarEnable(0, False);
    f.Control.RemoveTab(1);
    CHECK(f.Control.TabCount() == 2);
    CHECK(f.Control.ActiveTab() == 2); // required: TabCount, not the last tab
}

TEST_CASE("RemoveTab leaves a spare record that is like the last tab's") {
    ControlFixture f(4);
    f.Control.SetBarIco(3, u"sun");
    f.Control.SetBarEnable(3, False);
    f.Control.RemoveTab(1);
    const TabRecord& spare = f.Control.State().Tabs(f.Control.TabCount());
    CHECK(spare.Caption == u"Tab3");
    CHECK(spare.Ico == u"SUN");
    CHECK(spare.Enable == False);
    f.Insert(0, u"new");
    CHECK(f.Captions() == "Tab0 new Tab2 (Tab3)");
    CHECK(f.Control.State().Tabs(f.Control.TabCount()).Caption.empty());
}

TEST_CASE("removing the last tab leaves its own record behind as the spare one") {
    for (const Boolean enabled : {True, False}) {
        ControlFixture f(3);
        f.Control.ActiveTab(0);
        f.Control.SetBarEnable(2, enabled);
        f.AddChild(u"child", 300);
        f.Control.RemoveTab(2);
        CHECK(f.Control.State().Tabs(2).Caption == u"Tab2");
        // A handler may send the switch to the place behind the last tab; children move for an enabled record only.
        f.Host.On.TabDown = [](std::int16_t& index, std::int16_t&) { index = 2; };
        f.Control.UserControl_KeyDown(39, 0);
        CHECK(f.Control.ActiveTab() == 2);
        CHECK(f.Lefts() == (enabled ? "20300" : "300"));
    }
}

TEST_CASE("ActiveTab ignores a disabled target and indexes out of range") {
    ControlFixture f(3);
    f.Control.ActiveTab(1);
    f.Control.SetBarEnable(2, False);
    f.Host.TakeLog();
    for (const int index : {2, 3, -1}) f.Control.ActiveTab(static_cast<std::int16_t>(index));
    CHECK(f.Control.ActiveTab() == 1);
    CHECK(f.Host.TakeLog().empty());
}

TEST_CASE("setting the tab that is active already still marks it changed") {
    ControlFixture f(2);
    f.Control.ActiveTab(1);
    f.Host.TakeLog();
    f.Control.ActiveTab(1);
    CHECK(f.Host.TakeLog() == "PropertyChanged ActiveTab");
}

TEST_CASE("SetBarEnable on the active tab leaves no tab active, whether it disables or enables") {
    ControlFixture f(2);
    f.Control.ActiveTab(1);
    f.Control.SetBarEnable(1, True);
    CHECK(f.Control.ActiveTab() == -1);
    f.Control.ActiveTab(1);
    f.Control.SetBarEnable(1, False);
    CHECK(f.Control.ActiveTab() == -1);
    CHECK(f.Captions() == "Tab0 (Tab1)");
}

TEST_CASE("SetBarEnable on the hovered tab ends its hovering") {
    DrivenControl f(3), never(3);
    f.MoveTo(f.Bar(1));
    f.Control.SetBarEnable(1, True);
    CHECK(f.State().HoverTab == -1);
    f.Control.UserControl_Paint();
    never.Control.UserControl_Paint();
    CHECK(Difference(f.Host.Read(), never.Host.Read()) == "same"); // not in the hover look
    f.Log();
    f.MoveTo(f.Bar(1));
    CHECK(f.Log() == "TabMove 1"); // the bar is new to the pointer
}

TEST_CASE("SetBarEnable on the active tab shows or hides what stands in view, fixed children included") {
    ControlFixture f(2);
    f.Control.ActiveTab(0);
    f.Control.Let<std::u16string>(Property::FixOcxList, u"fixed");
    f.AddChild(u"shown", 300);
    f.AddChild(u"fixed", 10);
    f.AddChild(u"edge", 0); // not greater than 0: not in view
    f.AddChild(u"hidden", -9700);
    f.Control.SetBarEnable(0, False);
    CHECK(f.Host.Children[0].Visible == False);
    CHECK(f.Host.Children[1].Visible == False);
    CHECK(f.Host.Children[2].Visible == True);
    CHECK(f.Host.Children[3].Visible == True);
}

TEST_CASE("SetBarEnable changes nothing when a child that stands in view cannot be shown or hidden") {
    ControlFixture f(2);
    f.Control.ActiveTab(0);
    f.AddChild(u"shown", 300).HasVisible = false;
    CHECK(NumberRaisedBy([&] { f.Control.SetBarEnable(0, False); }) == 438);
    CHECK(f.Control.GetTabEnable(0) == True);
    CHECK(f.Control.ActiveTab() == 0);
}

TEST_CASE("SetBarEnable on the active tab leaves the pointer on it") {
    DrivenControl f(3);
    f.MoveTo(f.Bar(0));
    f.Control.SetBarEnable(0, False);
    CHECK(f.Control.ActiveTab() == -1);
    CHECK(f.State().HoverTab == 0); // required: of active and hovered the first one ends
}

TEST_CASE("SetBarEnable on any other tab draws its bar anew, and nothing else") {
    DrivenControl f(3), whole(3);
    for (DrivenControl* each : {&f, &whole}) {
        each->Control.SetBarIco(2, u"sun");
        each->Control.UserControl_Paint();
    }
    const Pixels before = f.Host.Read();
    f.Host.TakeLog();
    f.Host.TakeInvalidated();
    f.Control.SetBarEnable(2, False);
    CHECK(f.Host.TakeInvalidated() == "126,0,186,22"); // the third of 60 pixels, behind the corner of 6
    f.Control.UserControl_Paint();
    CHECK(f.Host.TakeLog() == "");
    whole.Control.SetBarEnable(2, False);
    whole.Control.RepaintAll();
    whole.Control.UserControl_Paint();
    CHECK(Difference(f.Host.Read(), before) != "same");
    CHECK(Difference(f.Host.Read(), whole.Host.Read()) == "same");
}

TEST_CASE("the getters answer -1 and False out of range") {
    ControlFixture f(2);
    CHECK(f.Control.GetTabCaption(2) == u"-1");
    CHECK(f.Control.GetTabCaption(-1) == u"-1");
    CHECK(f.Control.GetTabIco(2) == u"-1");
    CHECK(f.Control.GetTabEnable(2) == False);
}

TEST_CASE("SetBarIco stores the key in upper case") {
    ControlFixture f(1);
    f.Control.SetBarIco(0, u"Sun");
    CHECK(f.Control.GetTabIco(0) == u"SUN");
}

TEST_CASE("SetBarCaption stores the caption, and out of range nothing") {
    ControlFixture f(1);
    f.Control.SetBarCaption(0, u"Files", False);
    f.Control.SetBarCaption(1, u"none", True);
    CHECK(f.Captions() == "Files");
}

TEST_CASE("a list of 32767 tabs takes no further tab: the count overflows after the tabs made room") {
    ControlFixture f(32767);
    f.AddChild(u"ofTab0", 120);
    f.AddChild(u"ofTab1", -9880);
    f.Host.TakeLog();
    std::u16string caption;
    const RaisedError raised = ErrorRaisedBy([&] { f.Control.InsertTab(0, caption); });
    CHECK(raised.Number == 6);
    CHECK(raised.Text == "There are 32767 tabs, as many as can be");
    CHECK(caption == u"Tab32767");
    CHECK(f.Control.State().NewTabNumber == 32768);
    CHECK(f.Control.TabCount() == 32767);
    CHECK(f.Control.ActiveTab() == 0);
    CHECK(f.Host.TakeLog() == "PropertyChanged ActiveTab");
    CHECK(f.Control.GetTabCaption(0) == u"Tab0");
    CHECK(f.Control.GetTabCaption(1) == u"Tab0"); // moved up from the place before, like all behind it
    CHECK(f.Control.GetTabCaption(2) == u"Tab1");
    CHECK(f.Control.GetTabCaption(32766) == u"Tab32765");
}

// It ended in an error behind the list and before the repaint.
TEST_CASE("RemoveTab works while no tab is active and tab 0 is disabled") {
    ControlFixture f(4);
    f.AddChild(u"ofTab0", 120);
    f.Control.SetBarEnable(0, False); // the active one
    f.Control.RemoveTab(1);
    CHECK(f.Captions() == "(Tab0) Tab2 Tab3");
    CHECK(f.Control.ActiveTab() == -1);
    CHECK(f.Lefts() == "120");
    CHECK(f.Control.State().Layout.VisibleBarCount == 3); // laid out anew
}

// Only one window can be frozen at a time: while another one cannot be, the control's is.
TEST_CASE("the window is frozen while tabs are inserted and removed, and again free at every end") {
    const auto mayFreeze = [](HWND window) {
        const bool may = LockWindowUpdate(window);
        if (may) LockWindowUpdate(nullptr);
        return may;
    };
    constexpr void (*operations[])(ControlFixture&) = {[](ControlFixture& f) { f.Insert(1); },
                                                       [](ControlFixture& f) { f.Control.RemoveTab(1); }};
    for (const auto operation : operations)
        for (const bool fails : {false, true}) {
            ControlFixture f(3, 440, true), other(0, 100, true);
            FakeChild& child = f.AddChild(u"child", 300);
            child.HasLeft = !fails;
            int calls = 0;
            f.Host.OnCall = [&] {
                ++calls;
                CHECK_FALSE(mayFreeze(other.Host.hWnd()));
            };
            CHECK(NumberRaisedBy([&] { operation(f); }) == (fails ? 438 : 0));
            CHECK(calls > 0);
            f.Host.OnCall = nullptr;
            CHECK(mayFreeze(other.Host.hWnd()));
        }
}

TEST_CASE("a spare record always stands past the last tab") {
    ControlFixture f(1);
    for (int i = 0; i < 3; ++i) f.Insert(0);
    CHECK(f.Control.State().Tabs.UpperBound() == f.Control.TabCount());
    f.Control.RemoveTab(1);
    CHECK(f.Control.State().Tabs.UpperBound() == f.Control.TabCount());
}

TEST_CASE("an operation on a tab that the host takes away meanwhile ends there") {
    // The host takes it away at its first call, its second, and so on: the error of each run, 9 where the tab was in use.
    const auto errorsOf = [](const std::function<void(ControlFixture&)>& operation) {
        std::string errors;
        for (int takenAt = 1;; ++takenAt) {
            CAPTURE(takenAt);
            ControlFixture f(6);
            f.Control.ActiveTab(5);
            f.AddChild(u"child", 100);
            int calls = 0;
            f.Host.OnCall = [&] {
                if (++calls == takenAt) f.Control.TabCount(2);
            };
            const int error = NumberRaisedBy([&] { operation(f); });
            f.Host.OnCall = nullptr;
            if (calls < takenAt) return errors;
            CHECK(f.Captions() == "Tab0 Tab1");
            CHECK(f.Control.State().Tabs.UpperBound() == 2);
            CHECK(f.Control.ActiveTab() <= 1);
            errors += std::to_string(error);
        }
    };
    CHECK(errorsOf([](ControlFixture& f) { f.Insert(4); }) ==
          "00099"); // twice 9: the new tab is there, not yet active
    CHECK(errorsOf([](ControlFixture& f) { f.Control.RemoveTab(4); }) == "0000");
    CHECK(errorsOf([](ControlFixture& f) { f.Control.ActiveTab(4); }) == "99");
}

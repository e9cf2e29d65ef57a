// What screen readers can do: exactly what a press or a key does, and nothing where the user could do nothing.
#include <doctest/doctest.h>

#include "ole/accessible/ReadControl.h"

namespace vantik {

namespace {

HRESULT Act(const Node& node) { return node->accDoDefaultAction(node.Id()); }

// Of seven tabs: behind them the buttons.
constexpr std::size_t Tabs = 7, Previous = Tabs, Next = Tabs + 1, Menu = Tabs + 2;

struct Seven : ReadControl {
    Seven() : ReadControl(Tabs) { InWindow->Events().Take(); }
    std::string Events() const { return InWindow->Events().Take(); }
};

// A press takes the focus, too.
std::string TreeWithoutFocus(const Seven& control) {
    std::string tree = control.Tree();
    const std::string focused = "focused, ";
    for (auto at = tree.find(focused); at != tree.npos; at = tree.find(focused))
        tree.erase(at, focused.size());
    return tree;
}

POINT MiddleOf(const Seven& control, const Node& node) {
    const RECT place = node.Place();
    POINT middle = {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    ScreenToClient(control.Window(), &middle);
    return middle;
}

} // namespace

TEST_CASE("a tab's action switches as a key does, and that of the active tab does nothing") {
    const Seven control;
    CHECK(Act(control.Child(2)) == S_OK);
    CHECK(control.Events() == "TabDown 2 0");
    CHECK(control.Active() == 2);
    CHECK(Act(control.Child(2)) == S_OK);
    CHECK(control.Events() == "");
}

TEST_CASE("the host may send the switch elsewhere, or away") {
    const Seven control;
    control.InWindow->Events().During = [](const std::string&, std::int16_t* index) { *index = 4; };
    CHECK(Act(control.Child(2)) == S_OK);
    CHECK(control.Active() == 4);
    control.InWindow->Events().During = [](const std::string&, std::int16_t* index) { *index = 4; };
    CHECK(Act(control.Child(1)) == S_OK);
    CHECK(control.Active() == 4);
    control.InWindow->Events().During = [](const std::string&, std::int16_t* index) { *index = -9; };
    CHECK(Act(control.Child(1)) == static_cast<HRESULT>(0x800A0009)); // as when the host sets ActiveTab to it
    CHECK(control.Active() == 4);
}

TEST_CASE("a close button's action raises the event, closes the tab and leaves no hover behind") {
    const Seven pressed, told;
    const Node button = pressed.Child(1).Children().front();
    pressed.InWindow->Click(MiddleOf(pressed, button));
    CHECK(Act(told.Child(1).Children().front()) == S_OK);
    CHECK(told.Events() == "TabClose 1");
    CHECK(pressed.Events() == "TabMove 1; TabClose 1"); // the pointer came over the bar first
    CHECK(told.Count() == 6);
    CHECK(told.Child(1).Name() == pressed.Child(1).Name());
    CHECK(told.Active() == pressed.Active());
    told.InWindow->Press({20, 100});
    CHECK(told.Count() == 6);
}

TEST_CASE("an error of the handler is the answer, and no press elsewhere closes the tab afterwards") {
    const Seven control;
    control.InWindow->Events().Result = E_FAIL;
    CHECK(Act(control.Child(1).Children().front()) == E_FAIL);
    control.InWindow->Events().Result = S_OK;
    CHECK(control.Events() == "TabClose 1");
    SendMessageW(control.Window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 100)); // no move came before
    SendMessageW(control.Window(), WM_LBUTTONUP, 0, MAKELPARAM(20, 100));
    CHECK(control.Events() == "");
    CHECK(control.Count() == 7);
}

TEST_CASE("the pointer over a button shows in its state") {
    const Seven control;
    const Node close = control.Child(1).Children().front(), next = control.Child(Next);
    CHECK(!(close.State() & STATE_SYSTEM_HOTTRACKED));
    control.InWindow->Move(MiddleOf(control, control.Child(1)));
    control.InWindow->Move(MiddleOf(control, close));
    CHECK((close.State() & STATE_SYSTEM_HOTTRACKED));
    const RECT place = next.Place();
    SetForegroundWindow(control.InWindow->Site().Window);
    SetCursorPos(place.left - 40, place.bottom + 60);
    CHECK(!(next.State() & STATE_SYSTEM_HOTTRACKED));
    SetCursorPos((place.left + place.right) / 2, (place.top + place.bottom) / 2);
    CHECK((next.State() & (STATE_SYSTEM_HOTTRACKED | STATE_SYSTEM_PRESSED)) == STATE_SYSTEM_HOTTRACKED);
}

TEST_CASE("the buttons beside the row do what a press on them does") {
    const Seven pressed, told;
    for (const std::size_t button : {Next, Next, Previous, Menu}) {
        pressed.InWindow->Click(MiddleOf(pressed, pressed.Child(button)));
        CHECK(Act(told.Child(button)) == S_OK);
        CHECK(told.Events() == pressed.Events());
        CHECK(TreeWithoutFocus(told) == TreeWithoutFocus(pressed));
        SetFocus(nullptr); // which a press takes, and which shows
        CHECK(test::Difference(told.InWindow->Picture(), pressed.InWindow->Picture()) == "same");
    }
}

TEST_CASE("a button that has nothing to scroll to says so") {
    const Seven control;
    CHECK(Act(control.Child(Previous)) == E_ACCESSDENIED);
    CHECK(control.Events() == "");
}

TEST_CASE("selecting a tab switches, and gives the control the focus when that is asked for") {
    const Seven control;
    SetFocus(control.InWindow->Site().Window);
    const Node tab = control.Child(3);
    CHECK(tab->accSelect(SELFLAG_TAKESELECTION, tab.Id()) == S_OK);
    CHECK(control.Active() == 3);
    CHECK(GetFocus() != control.Window());
    CHECK(control.Child(1)->accSelect(SELFLAG_TAKEFOCUS, ChildId(CHILDID_SELF)) == S_OK);
    CHECK(control.Active() == 1);
    CHECK(GetFocus() == control.Window());
    CHECK(control.Root()->accSelect(SELFLAG_TAKEFOCUS, ChildId(CHILDID_SELF)) == S_OK);
    CHECK(control.Root()->accSelect(SELFLAG_TAKESELECTION, ChildId(5)) == S_OK);
    CHECK(control.Active() == 4);
    for (const LONG flags : {LONG{0}, LONG{SELFLAG_ADDSELECTION},
                             LONG{SELFLAG_TAKESELECTION | SELFLAG_EXTENDSELECTION}, LONG{99}})
        CHECK(tab->accSelect(flags, tab.Id()) == E_INVALIDARG);
}

TEST_CASE("a control that the user cannot use does nothing, and says so") {
    const Seven control;
    const std::vector<Node> children = control.Root().Children();
    const auto refuses = [&] {
        for (const std::size_t child : {std::size_t{2}, Next, Menu})
            CHECK(Act(children[child]) == E_ACCESSDENIED);
        CHECK(Act(children[1].Children().front()) == E_ACCESSDENIED);
        CHECK(children[2]->accSelect(SELFLAG_TAKEFOCUS, ChildId(CHILDID_SELF)) == E_ACCESSDENIED);
        CHECK(control.Events() == "");
        CHECK(control.Active() == 0);
    };
    EnableWindow(control.Window(), FALSE);
    refuses();
    EnableWindow(control.Window(), TRUE);
    ShowWindow(control.Window(), SW_HIDE);
    refuses();
}

TEST_CASE("the row and the page have no action") {
    const Seven control;
    CHECK(Act(control.Root()) == DISP_E_MEMBERNOTFOUND);
    CHECK(Act(control.Root().Children().back()) == DISP_E_MEMBERNOTFOUND);
}

} // namespace vantik

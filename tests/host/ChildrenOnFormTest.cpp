// The control moves what stands on it, by whichever way the form lets it find that.
#include <doctest/doctest.h>

#include "host/ControlOnForm.h"

namespace vantik {

namespace {

constexpr std::int32_t TabOffSet = 15000; // a whole number of pixels

HWND Button(HWND parent, int left) {
    return CreateWindowExW(0, L"BUTTON", L"b", WS_CHILD | WS_VISIBLE, left, 60, 40, 20, parent, nullptr,
                           nullptr, nullptr);
}

// A plain window says its name by an atom.
class NamedWindow {
public:
    NamedWindow(HWND window, const wchar_t* name) : window_(window), atom_(GlobalAddAtomW(name)) {
        SetPropW(window_, L"Name", reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(atom_)));
    }
    ~NamedWindow() {
        RemovePropW(window_, L"Name");
        GlobalDeleteAtom(atom_);
    }
    NamedWindow(const NamedWindow&) = delete;
    NamedWindow& operator=(const NamedWindow&) = delete;

private:
    HWND window_;
    ATOM atom_;
};

int LeftPixel(HWND window) {
    RECT place = {};
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&place), 2);
    return place.left;
}

// Two windows of tabs 0 and 1 and two that FixOcxList speaks of.
struct Children {
    HWND First;
    HWND Second;
    HWND Fixed;
    HWND Blank; // its entry begins with a blank and so names nobody

    explicit Children(HWND control)
        : First(Button(control, 30)),
          Second(Button(control, 100 - ToPixels(TabOffSet))),
          Fixed(Button(control, 200)),
          Blank(Button(control, 300)) {}

    std::vector<int> Lefts() const {
        return {LeftPixel(First), LeftPixel(Second), LeftPixel(Fixed), LeftPixel(Blank)};
    }
};

void OpenForFixing(ControlOnForm& test) {
    test.OpenWithTabs(3);
    Put(test.Control(), L"TabOffSet", TabOffSet);
    Put(test.Control(), L"FixOcxList", L"btnFixed, lblTitle");
}

// Left on tab 0, on tab 1, and on tab 0 again.
void CheckSwitches(ControlOnForm& test, const Children& children) {
    const int offset = ToPixels(TabOffSet);
    const std::vector<int> onFirst = {30, 100 - offset, 200, 300};
    const std::vector<int> onSecond = {30 + offset, 100, 200, 300 + offset};
    CHECK(children.Lefts() == onFirst);
    Put(test.Control(), L"ActiveTab", std::int16_t{1});
    CHECK(children.Lefts() == onSecond);
    Put(test.Control(), L"ActiveTab", std::int16_t{1}); // already active
    CHECK(children.Lefts() == onSecond);
    Put(test.Control(), L"ActiveTab", std::int16_t{0});
    CHECK(children.Lefts() == onFirst);
}

void AddAll(HostForm& form, const Children& children) {
    form.Add(L"txtFirst", children.First);
    form.Add(L"txtSecond", children.Second);
    form.Add(L"BTNFIXED", children.Fixed); // names have no case
    form.Add(L"lblTitle", children.Blank);
}

} // namespace

TEST_CASE("Children found by the site's list of contained controls move with their tabs, fixed ones stay") {
    HostSwitches switches;
    switches.VbGetControl = true;
    switches.EnumerateObjects = false;
    ControlOnForm test(switches);
    OpenForFixing(test);
    const Children children(test.Form().ControlWindow());
    AddAll(test.Form(), children);
    CheckSwitches(test, children);
}

TEST_CASE("Children found among all objects of the form move with their tabs, fixed ones stay") {
    ControlOnForm test;
    OpenForFixing(test);
    const Children children(test.Form().ControlWindow());
    AddAll(test.Form(), children);
    const HWND beside = Button(test.Form().Window().Handle(), 5); // on the form, not on the control
    CheckSwitches(test, children);
    CHECK(LeftPixel(beside) == 5);
}

TEST_CASE("Plain child windows move with their tabs, fixed ones stay") {
    HostSwitches switches;
    switches.EnumerateObjects = false;
    ControlOnForm test(switches);
    OpenForFixing(test);
    const Children children(test.Form().ControlWindow());
    const NamedWindow fixed(children.Fixed, L"BtnFixed");
    const NamedWindow title(children.Blank, L"lblTitle");
    CheckSwitches(test, children);
}

TEST_CASE("A plain child window without a name goes by its dialog id") {
    HostSwitches switches;
    switches.Container = false;
    ControlOnForm test(switches);
    test.OpenWithTabs(2);
    Put(test.Control(), L"FixOcxList", L"4711");
    const HWND fixed = Button(test.Form().ControlWindow(), 30);
    SetWindowLongPtrW(fixed, GWLP_ID, 4711);
    Put(test.Control(), L"ActiveTab", std::int16_t{1});
    CHECK(LeftPixel(fixed) == 30);
}

TEST_CASE("Emptying FixOcxList after a switch keeps the old names fixed") {
    ControlOnForm test;
    OpenForFixing(test);
    const HWND fixed = Button(test.Form().ControlWindow(), 30);
    test.Form().Add(L"btnFixed", fixed);
    Put(test.Control(), L"ActiveTab", std::int16_t{1});
    Put(test.Control(), L"FixOcxList", L"");
    Put(test.Control(), L"ActiveTab", std::int16_t{0});
    CHECK(LeftPixel(fixed) == 30);
}

TEST_CASE("A child without the needed property raises 438 to whoever switched the tab") {
    ControlOnForm test;
    test.OpenWithTabs(2);
    test.Form().Add(L"shape", Button(test.Form().ControlWindow(), 30)).OwnExtender().Forget(L"Left");
    try {
        Put(test.Control(), L"ActiveTab", std::int16_t{1});
        FAIL("no error came");
    } catch (const AutomationError& error) {
        CHECK(error.Number() == 438);
        CHECK(error.Description() == L"Child \"shape\": there is no property \"Left\"");
    }
    CHECK(test.Number(L"ActiveTab") == 0);
}

TEST_CASE("Disabling the active tab hides what stands in view") {
    ControlOnForm test;
    OpenForFixing(test);
    const Children children(test.Form().ControlWindow());
    AddAll(test.Form(), children);
    Call(test.Control(), L"SetBarEnable", {std::int16_t{0}, false});
    const auto isVisible = [](HWND window) {
        return (GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0;
    };
    CHECK(!isVisible(children.First));
    CHECK(!isVisible(children.Fixed));
    CHECK(isVisible(children.Second)); // out of view, so left alone
    CHECK(test.Number(L"ActiveTab") == -1);
}

TEST_CASE("Inserting and removing tabs renumbers the children") {
    ControlOnForm test;
    test.OpenWithTabs(3);
    Put(test.Control(), L"TabOffSet", TabOffSet);
    const int offset = ToPixels(TabOffSet);
    const HWND second = Button(test.Form().ControlWindow(), 100 - offset);
    test.Form().Add(L"txtSecond", second);
    Call(test.Control(), L"InsertTab", {std::int16_t{0}}); // the new tab 1 is the active one
    CHECK(LeftPixel(second) == 100 - offset);
    Put(test.Control(), L"ActiveTab", std::int16_t{2});
    CHECK(LeftPixel(second) == 100);
    Call(test.Control(), L"RemoveTab", {std::int16_t{2}}); // parked behind every tab, with tab 0 active
    CHECK(LeftPixel(second) == 100 - 2 * offset + 4 * offset);
}

} // namespace vantik

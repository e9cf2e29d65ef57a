// Plain child windows as children of tabs.
#include <doctest/doctest.h>

#include "ole/host/ChildWindow.h"

namespace vantik {

namespace {

struct WindowWithChild {
    HWND Parent =
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 400, 300, nullptr, nullptr, nullptr, nullptr);
    HWND Child = CreateWindowExW(0, L"BUTTON", L"", WS_CHILD | WS_VISIBLE, 30, 40, 50, 20, Parent, nullptr,
                                 nullptr, nullptr);
    ~WindowWithChild() { DestroyWindow(Parent); }

    int Pixel() const {
        RECT area = {};
        GetWindowRect(Child, &area);
        MapWindowPoints(nullptr, Parent, reinterpret_cast<POINT*>(&area), 2);
        return area.left;
    }
};

constexpr Resolution Screen = {96, 96}; // 15 twips per pixel

} // namespace

TEST_CASE("A window's left edge is told and set in twips") {
    const WindowWithChild test;
    ChildWindow child(test.Child, Screen);
    CHECK(child.Left() == 450);
    child.Left(-750);
    CHECK(test.Pixel() == -50);
    CHECK(child.Left() == -750);
}

TEST_CASE("Twips are kept as the whole number that is nearest") {
    const WindowWithChild test;
    ChildWindow child(test.Child, Screen);
    child.Left(465.75);
    CHECK(child.Left() == 466);
    child.Left(-465.75);
    CHECK(child.Left() == -466);
}

TEST_CASE("Distances that are no whole pixels do not add up") {
    const WindowWithChild test;
    ChildWindow child(test.Child, Screen);
    for (const int step : {10000, 10000, -30000, 10000, -20000, 20000, 10001, -10001})
        child.Left(child.Left() + step);
    CHECK(child.Left() == 450);
    CHECK(test.Pixel() == 30);
}

TEST_CASE("A window comes back from farther away than windows can stand") {
    const WindowWithChild test;
    ChildWindow child(test.Child, Screen);
    child.Left(450 - 1'000'000.0);
    CHECK(child.Left() == -999'550);
    child.Left(child.Left() + 1'000'000);
    CHECK(test.Pixel() == 30);
}

TEST_CASE("A window that somebody else moved stands where it was put") {
    const WindowWithChild test;
    ChildWindow child(test.Child, Screen);
    child.Left(455); // no whole pixel, and kept
    CHECK(child.Left() == 455);
    SetWindowPos(test.Child, nullptr, 100, 40, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    CHECK(child.Left() == 1500);
}

TEST_CASE("Twips just below zero are kept as they are") {
    const WindowWithChild test;
    ChildWindow child(test.Child, Screen);
    child.Left(-1);
    CHECK(child.Left() == -1);
    child.Left(0);
    CHECK(child.Left() == 0);
}

TEST_CASE("A window is named by the atom in its property, else by its dialog id") {
    const WindowWithChild test;
    ChildWindow child(test.Child, Screen);
    SetWindowLongPtrW(test.Child, GWLP_ID, 4711);
    CHECK(child.Name() == u"4711");
    const ATOM atom = GlobalAddAtomW(L"btnOk");
    SetPropW(test.Child, L"Name", reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(atom)));
    CHECK(child.Name() == u"btnOk");
    RemovePropW(test.Child, L"Name");
    GlobalDeleteAtom(atom);
}

TEST_CASE("A window is hidden and shown") {
    const WindowWithChild test;
    ChildWindow child(test.Child, Screen);
    const auto isShown = [&] { return (GetWindowLongPtrW(test.Child, GWL_STYLE) & WS_VISIBLE) != 0; };
    child.Visible(False);
    CHECK(!isShown());
    child.Visible(True);
    CHECK(isShown());
}

} // namespace vantik

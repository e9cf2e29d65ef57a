// The control on screens of every scale, also of one that differs across and down.
#include <doctest/doctest.h>

#include "ole/server/ControlObject.h"
#include "ole/window/PaintedAndHit.h"

namespace vantik {

namespace {

struct Apartment {
    Apartment() { OleInitialize(nullptr); }
    ~Apartment() { OleUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

constexpr RECT Place = {30, 20, 430, 280};
constexpr Resolution Screens[] = {{96, 96},   {120, 120}, {144, 144}, {168, 168}, {192, 192},
                                  {216, 216}, {240, 240}, {288, 288}, {168, 120}, {96, 216}};

ComPtr<IUnknown> ControlOn(const Resolution& screen) {
    ComPtr<IUnknown> control;
    ControlObject::Create(nullptr, IID_IUnknown, control.PutVoid(), screen);
    return control;
}

LONG LeftOf(HWND child) {
    RECT area = {};
    GetWindowRect(child, &area);
    MapWindowPoints(nullptr, GetParent(child), reinterpret_cast<POINT*>(&area), 2);
    return area.left;
}

} // namespace

TEST_CASE("At every scale the control fills its window, and what is painted is what is hit") {
    const Apartment apartment;
    for (const Resolution& screen : Screens) {
        CAPTURE(screen.X);
        CAPTURE(screen.Y);
        CheckPaintedIsHit([&] { return ControlOn(screen); });
    }
}

TEST_CASE("At every scale the picture stands where the container's background stands") {
    const Apartment apartment;
    const test::Pixels picture = test::Patterned(Place.right, Place.bottom, 1);
    for (const Resolution& screen : Screens) {
        CAPTURE(screen.X);
        CAPTURE(screen.Y);
        const WindowedControl control(ControlOn(screen), Place);
        control.Tab().putref_Picture(test::PictureOf(picture).Get());
        control.Tab().put_TabCount(1);
        const test::Pixels page = control.Picture().Cut(50, 50, 250, 150);
        CHECK(Difference(page, picture.Cut(Place.left + 50, Place.top + 50, 250, 150)) == "same");
    }
}

TEST_CASE("At every scale a size in HIMETRIC is one on the screen") {
    const Apartment apartment;
    for (const Resolution& screen : Screens) {
        const WindowedControl control(ControlOn(screen), Place);
        SIZEL size = {};
        control.Object().GetExtent(DVASPECT_CONTENT, &size);
        CHECK(size.cx == MulDiv(Place.right - Place.left, 2540, screen.X));
        CHECK(size.cy == MulDiv(Place.bottom - Place.top, 2540, screen.Y));
        size = {2540, 2 * 2540};
        control.Object().SetExtent(DVASPECT_CONTENT, &size);
        const RECT& asked = control.Site().Asked;
        CHECK(asked.right - asked.left == screen.X);
        CHECK(asked.bottom - asked.top == 2 * screen.Y);
    }
}

TEST_CASE("At every scale a child window stands where the host's twips say") {
    const Apartment apartment;
    for (const Resolution& screen : Screens) {
        CAPTURE(screen.X);
        const WindowedControl control(ControlOn(screen), Place);
        control.Tab().put_TabOffSet(10 * 1440); // ten inches
        control.Tab().put_TabCount(2);
        control.Tab().put_ActiveTab(0);
        const HWND child = CreateWindowExW(0, L"BUTTON", L"", WS_CHILD, 40, 50, 60, 20, control.Window(),
                                           nullptr, nullptr, nullptr);
        control.Tab().put_ActiveTab(1);
        CHECK(LeftOf(child) == 40 + 10 * screen.X);
        control.Tab().put_ActiveTab(0);
        CHECK(LeftOf(child) == 40);
    }
}

} // namespace vantik

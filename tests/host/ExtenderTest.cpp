#include "host/Extender.h"

#include <doctest/doctest.h>

#include "host/Automation.h"
#include "host/FormWindow.h"
#include "host/HostedWindow.h"

namespace vantik {

namespace {

FormWindow Form() { return FormWindow(L"Form", {200, 100}, nullptr); }

HWND Button(HWND parent, int left, int top) {
    return CreateWindowExW(0, L"BUTTON", L"b", WS_CHILD | WS_VISIBLE, left, top, 30, 20, parent, nullptr,
                           nullptr, nullptr);
}

int LeftInParent(HWND window) {
    RECT place = {};
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&place), 2);
    return place.left;
}

// The way by which a control finds the extender of a child.
ComPtr<IDispatch> ExtenderOf(IUnknown* object) {
    ComPtr<IOleClientSite> site;
    ComPtr<IDispatch> extender;
    REQUIRE(QueryFor<IOleObject>(object)->GetClientSite(site.Put()) == S_OK);
    site.As<IOleControlSite>()->GetExtendedControl(extender.Put());
    return extender;
}

} // namespace

TEST_CASE("A window on a form is reached by its object, its site and its extender, in twips") {
    const FormWindow form = Form();
    HostedWindow item(L"cmdOk", Button(form.Handle(), 20, 10), nullptr, true);
    const auto extender = ExtenderOf(item.Object().Get());
    REQUIRE(extender);
    CHECK(Get(*extender.Get(), L"Name").Text() == L"cmdOk");
    CHECK(Get(*extender.Get(), L"left").Real() == ToTwips(20)); // names have no case
    CHECK(Get(*extender.Get(), L"Height").Real() == ToTwips(20));
    Put(*extender.Get(), L"Left", ToTwips(120));
    CHECK(LeftInParent(item.Window()) == 120);
    Put(*extender.Get(), L"Visible", false);
    CHECK((GetWindowLongPtrW(item.Window(), GWL_STYLE) & WS_VISIBLE) == 0);
}

TEST_CASE("A position far out of sight and back, or between two pixels, is kept exactly") {
    const FormWindow form = Form();
    HostedWindow item(L"cmdOk", Button(form.Handle(), 20, 10), nullptr, true);
    const auto extender = ExtenderOf(item.Object().Get());
    for (const double left : {-2000000.0, 307.0, 300.5}) {
        Put(*extender.Get(), L"Left", left);
        CHECK(Get(*extender.Get(), L"Left").Real() == left);
    }
    CHECK(LeftInParent(item.Window()) == ToPixels(300.5));
}

TEST_CASE("An extender refuses what it does not know, and everything once its item is gone") {
    ComPtr<IDispatch> extender;
    {
        const FormWindow form = Form();
        HostedWindow item(L"cmdOk", Button(form.Handle(), 20, 10), nullptr, true);
        extender = ExtenderOf(item.Object().Get());
        CHECK_THROWS_AS(Get(*extender.Get(), L"Caption"), AutomationError);
        CHECK_THROWS_AS(Put(*extender.Get(), L"Name", L"other"), AutomationError);
        item.OwnExtender().Forget(L"Left");
        CHECK_THROWS_AS(Get(*extender.Get(), L"Left"), AutomationError);
    }
    CHECK_THROWS_AS(Get(*extender.Get(), L"Top"), AutomationError);
}

TEST_CASE("A form without extenders says so") {
    const FormWindow form = Form();
    HostedWindow item(L"cmdOk", Button(form.Handle(), 20, 10), nullptr, false);
    CHECK(!ExtenderOf(item.Object().Get()));
}

} // namespace vantik

// Hosts that refuse an activation half way, or begin and end others inside it: what was begun is undone, and no window
// outlives its control.
#include <doctest/doctest.h>

#include <algorithm>

#include "ole/LooseControl.h"
#include "ole/OddSite.h"

namespace vantik {

namespace {

void DoVerb(const LooseControl& control, LONG verb) {
    control.As<IOleObject>()->DoVerb(verb, nullptr, nullptr, 0, nullptr, nullptr);
}

void Deactivate(const LooseControl& control) { control.As<IOleInPlaceObject>()->InPlaceDeactivate(); }

HWND WindowOf(const LooseControl& control) {
    HWND window = nullptr;
    control.As<IOleWindow>()->GetWindow(&window);
    return window;
}

HWND WindowOn(const OddSite& site) { return ::GetWindow(site.Window, GW_CHILD); }

// What a host may do in a call that it gets.
struct Deed {
    const char* Name;
    void (*Do)(LooseControl&, OddSite&);
};

constexpr Deed Deeds[] = {
    {"activate", [](LooseControl& c, OddSite&) { DoVerb(c, OLEIVERB_SHOW); }},
    {"activate with the keyboard", [](LooseControl& c, OddSite&) { DoVerb(c, OLEIVERB_UIACTIVATE); }},
    {"deactivate", [](LooseControl& c, OddSite&) { Deactivate(c); }},
    {"take the keyboard away", [](LooseControl& c, OddSite&) { c.As<IOleInPlaceObject>()->UIDeactivate(); }},
    {"deactivate and activate",
     [](LooseControl& c, OddSite&) {
         Deactivate(c);
         DoVerb(c, OLEIVERB_UIACTIVATE);
     }},
    {"close", [](LooseControl& c, OddSite&) { c.As<IOleObject>()->Close(OLECLOSE_NOSAVE); }},
    {"take the site away", [](LooseControl& c, OddSite&) { c.As<IOleObject>()->SetClientSite(nullptr); }},
    {"take the site away, give it back and activate",
     [](LooseControl& c, OddSite& site) {
         c.As<IOleObject>()->SetClientSite(nullptr);
         c.As<IOleObject>()->SetClientSite(&site);
         DoVerb(c, OLEIVERB_UIACTIVATE);
     }},
    {"destroy the window", [](LooseControl& c, OddSite&) { DestroyWindow(WindowOf(c)); }},
    {"destroy the window and activate",
     [](LooseControl& c, OddSite&) {
         DestroyWindow(WindowOf(c));
         DoVerb(c, OLEIVERB_UIACTIVATE);
     }},
};

struct Failure {
    const char* Name;
    Oddities Site;
};

const Failure Failures[] = {
    {"nothing fails", {}},
    {"CanInPlaceActivate", {.CanActivate = S_FALSE}},
    {"OnInPlaceActivate", {.Activate = E_FAIL}},
    {"OnUIActivate", {.UIActivate = E_FAIL}},
    {"GetWindowContext", {.WindowContext = E_FAIL}},
    {"GetWindow", {.ParentWindow = E_FAIL}},
};

// At the end the control is neither on the site nor in anything that the site was told.
void CheckThatNothingIsLeft(LooseControl& control, OddSite& site, bool refuses) {
    site.During = nullptr;
    control.As<IOleObject>()->SetClientSite(nullptr);
    control.Release();
    const auto count = [&](const char* call) { return std::ranges::count(site.Calls, call); };
    if (!refuses) CHECK(count("OnInPlaceActivate") == count("OnInPlaceDeactivate"));
    CHECK(!WindowOn(site));
    CHECK(control.Module().CanUnload());
}

} // namespace

TEST_CASE("a host that activates the control inside the activation that it then refuses has no window left") {
    for (const LONG verb : {OLEIVERB_SHOW, OLEIVERB_UIACTIVATE}) {
        CAPTURE(verb);
        LooseControl control;
        const auto site = MakeCom<OddSite>(Oddities{.Activate = E_FAIL});
        control.As<IOleObject>()->SetClientSite(site.Get());
        site->During = [&](const std::string& call) {
            if (call == "OnInPlaceActivate") DoVerb(control, verb);
        };
        DoVerb(control, OLEIVERB_SHOW);
        CHECK(!WindowOf(control));
        CHECK(!WindowOn(*site.Get()));
        CHECK(std::ranges::count(site->Calls, "OnUIActivate") ==
              std::ranges::count(site->Calls, "OnUIDeactivate"));
        CHECK(std::ranges::count(site->Calls, "OnInPlaceDeactivate") == 0); // it never agreed
        control.Release();
        CHECK(control.Module().CanUnload());
    }
}

TEST_CASE("a host that activates the control again while it ends gets no window any more") {
    for (const char* const call : {"OnUIDeactivate", "OnFocusLost", "OnInPlaceDeactivate"}) {
        CAPTURE(std::string(call));
        LooseControl control;
        const auto site = MakeCom<OddSite>();
        auto object = control.As<IOleObject>();
        object->SetClientSite(site.Get());
        DoVerb(control, OLEIVERB_UIACTIVATE);
        IOleObject* const uncounted = object.Get();
        bool done = false;
        site->During = [&](const std::string& now) {
            if (now != call) return;
            done = true;
            uncounted->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, nullptr, nullptr);
        };
        object.Reset();
        control.Release();
        CHECK(done);
        CHECK(!WindowOn(*site.Get()));
        CHECK(control.Module().CanUnload());
    }
}

TEST_CASE(
    "whatever a host does in whichever call, and whichever step fails, no window outlives the control") {
    constexpr const char* Calls[] = {
        "CanInPlaceActivate", "OnInPlaceActivate",  "GetWindow", "GetWindowContext",
        "ShowObject",         "OnUIActivate",       "OnFocus",   "OnUIDeactivate",
        "OnFocusLost",        "OnInPlaceDeactivate"};
    for (const char* const call : Calls) {
        for (const Deed& deed : Deeds) {
            for (const Failure& failure : Failures) {
                for (const int times : {1, 3}) {
                    CAPTURE(std::string(call));
                    CAPTURE(std::string(deed.Name));
                    CAPTURE(std::string(failure.Name));
                    CAPTURE(times);
                    LooseControl control;
                    const auto site = MakeCom<OddSite>(failure.Site);
                    control.As<IOleObject>()->SetClientSite(site.Get());
                    int left = times;
                    site->During = [&](const std::string& now) {
                        if (now == call && left-- > 0) deed.Do(control, *site.Get());
                    };
                    DoVerb(control, OLEIVERB_UIACTIVATE);
                    Deactivate(control);
                    CheckThatNothingIsLeft(control, *site.Get(), FAILED(failure.Site.Activate));
                }
            }
        }
    }
}

} // namespace vantik

// Handlers that call back into the control from inside each of the six events.
#include <doctest/doctest.h>

#include "tests/RunTimeErrors.h"
#include "tests/control/DrivenControl.h"

using namespace vantik;
using namespace vantik::test;

namespace {

using Deed = void (*)(DrivenControl&);

constexpr struct {
    const char* Name;
    Deed Do;
} Deeds[] = {
    {"RemoveTab", [](DrivenControl& f) { f.Control.RemoveTab(0); }},
    {"RemoveTab down to one",
     [](DrivenControl& f) {
         while (f.Control.TabCount() > 1) f.Control.RemoveTab(1);
     }},
    {"InsertTab", [](DrivenControl& f) { f.Fixture.Insert(0); }},
    {"TabCount", [](DrivenControl& f) { f.Control.TabCount(1); }},
    {"SkinFile", [](DrivenControl& f) { f.Control.SkinFile(u"skin.ini"); }},
    {"another press", [](DrivenControl& f) { f.Key(39); }},
};

constexpr struct {
    const char* Name;
    Deed Raise;
} Events[] = {
    {"DownBarDown", [](DrivenControl& f) { f.Click(f.Buttons().Menu); }},
    {"PreTabDown",
     [](DrivenControl& f) {
         f.Click(f.Buttons().Next);
         f.Click(f.Buttons().Previous);
     }},
    {"NextTabDown", [](DrivenControl& f) { f.Click(f.Buttons().Next); }},
    {"TabMove", [](DrivenControl& f) { f.MoveTo(f.Bar(1)); }},
    {"TabDown", [](DrivenControl& f) { f.Click(f.Bar(2)); }},
    {"TabClose", [](DrivenControl& f) { f.Click(f.Close(1)); }},
};

// The handlers of all events do the deed, once, so that they do not call themselves for ever.
void Handle(DrivenControl& f, Deed deed, int& calls) {
    const auto once = [&f, deed, &calls] {
        if (calls++ == 0) deed(f);
    };
    f.Host.On.DownBarDown = once;
    const auto withIndex = [once](std::int16_t&) { once(); };
    f.Host.On.PreTabDown = f.Host.On.NextTabDown = f.Host.On.TabMove = f.Host.On.TabClose = withIndex;
    f.Host.On.TabDown = [once](std::int16_t&, std::int16_t&) { once(); };
}

bool IsSound(const ControlState& state) {
    const std::int16_t tabs = state.Properties.TabCount;
    return tabs >= 1 && state.Tabs.UpperBound() == tabs && state.Layout.VisibleBarCount <= tabs;
}

} // namespace

TEST_CASE("a handler may call back into the control from inside each event") {
    for (const auto& event : Events)
        for (const auto& deed : Deeds) {
            CAPTURE(event.Name);
            CAPTURE(deed.Name);
            DrivenControl f(40);
            int calls = 0;
            Handle(f, deed.Do, calls);
            // An index that the handler made invalid ends the operation with an error, which a window swallows.
            const int error = NumberRaisedBy([&] { event.Raise(f); });
            CHECK((error == 0 || error == 9));
            CHECK(calls > 0);
            CHECK(IsSound(f.State()));
            f.Host.On = {};
            f.Control.ActiveTab(0);
            f.Control.UserControl_Paint();
            CHECK(f.Control.ActiveTab() == 0);
        }
}

TEST_CASE("an error that a handler raises goes to the caller and ends the operation") {
    DrivenControl f(3);
    f.Host.On.TabDown = [](std::int16_t&, std::int16_t&) { Raise(RunTimeErrorNumber::InvalidProcedureCall); };
    CHECK(NumberRaisedBy([&] { f.Key(39); }) == 5);
    CHECK(f.Control.ActiveTab() == 0);
}

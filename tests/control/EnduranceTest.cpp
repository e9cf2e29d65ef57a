#include <doctest/doctest.h>

#include "tests/control/RandomActions.h"
#include "tests/gfx/GdiObjects.h"

using namespace vantik;
using namespace vantik::test;

TEST_CASE("100,000 random actions leave no GDI object behind but for the slots that are kept") {
    constexpr int Actions = 100000, ActionsPerControl = 5000;
    // At termination the bitmaps in the fourth to sixth slots of an icon stay, as required.
    constexpr int KeptPerIcon = 3, Icons = 6;
    std::mt19937 chance(20261121);
    DrivenControl(3).Control.UserControl_Paint(); // what the process keeps for good is there now
    const int before = GdiObjectCount();
    for (int done = 0; done < Actions; done += ActionsPerControl) {
        DrivenControl f(8);
        for (int i = 0; i < ActionsPerControl; ++i) {
            RandomAction(chance).DoTo(f);
            if (i % 4 == 0) f.Control.UserControl_Paint();
        }
    }
    CHECK(GdiObjectCount() - before <= Actions / ActionsPerControl * KeptPerIcon * Icons);
}

TEST_CASE("one control's GDI objects do not grow with what it does") {
    std::mt19937 chance(7);
    DrivenControl f(8);
    const auto act = [&](int actions) {
        for (int i = 0; i < actions; ++i) {
            RandomAction(chance).DoTo(f);
            f.Control.UserControl_Paint();
        }
        return GdiObjectCount();
    };
    const int early = act(3000);
    CHECK(act(3000) - early <= 60); // cached pictures of looks that had not come up before
}

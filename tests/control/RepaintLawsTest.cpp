// The laws of painting for the whole control with its real skin, captions and icons, over everything a host can do.
#include <doctest/doctest.h>

#include "tests/control/RandomActions.h"

using namespace vantik;
using namespace vantik::test;

namespace {

Pixels Look(DrivenControl& f) {
    f.Control.UserControl_Paint();
    return f.Host.Read();
}

} // namespace

TEST_CASE("after any action, redrawing the bars leaves what a full repaint paints") {
    constexpr int Controls = 55, ActionsPerControl = 40;
    std::random_device device;
    for (int i = 0; i < Controls; ++i) {
        const std::uint32_t seed = device();
        CAPTURE(seed);
        std::mt19937 chance(seed);
        DrivenControl f(static_cast<std::int16_t>(1 + chance() % 12));
        for (int action = 0; action < ActionsPerControl; ++action) {
            CAPTURE(action);
            const std::int16_t frameDist = f.State().Properties.FrameDist;
            RandomAction(chance).DoTo(f);
            // The frame's distance repaints nothing: it shows when everything is repainted next.
            if (f.State().Properties.FrameDist != frameDist) f.Control.RepaintAll();
            f.Control.RedrawBars();
            const Pixels partial = Look(f);
            f.Control.RedrawBars();
            REQUIRE(Difference(Look(f), partial) == "same");
            f.Control.RepaintAll();
            const Pixels full = Look(f);
            REQUIRE(Difference(partial, full) == "same");
            f.Control.RepaintAll();
            REQUIRE(Difference(Look(f), full) == "same");
        }
    }
}

#include <doctest/doctest.h>

#include "tests/tools/skin/MadeSkin.h"
#include "tools/skin/CheckSkin.h"

using namespace vantik;

TEST_CASE("A line that the control refuses is found where the reason stands") {
    const auto faults = CheckSkin(MadeSkin("Start\n[Tab]\n5: 1,x,3,4\nEnd\n"));
    REQUIRE(faults.size() == 1);
    CHECK(Format(faults[0]).starts_with("SKIN.INI:3:6: error: \"x\" is not a number\n"));
}

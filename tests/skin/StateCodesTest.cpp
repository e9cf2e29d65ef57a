#include "skin/StateCodes.h"

#include <doctest/doctest.h>

#include "tests/RunTimeErrors.h"

using namespace vantik;

TEST_CASE("each look and state of a tab's icon has a code and a slot of its own") {
    constexpr const char16_t* enabled[] = {u"00", u"10", u"20"};
    constexpr const char16_t* disabled[] = {u"03", u"13", u"23"};
    for (std::uint8_t look = 0; look < 3; ++look) {
        CHECK(TabIconCode(look, true).Code == enabled[look]);
        CHECK(TabIconCode(look, true).Slot == 2 * look);
        CHECK(TabIconCode(look, false).Code == disabled[look]);
        CHECK(TabIconCode(look, false).Slot == 2 * look + 1);
    }
}

TEST_CASE("a disabled tab in look 1 uses the code 13 and the fourth slot") {
    CHECK(TabIconCode(1, false).Code == u"13");
    CHECK(TabIconCode(1, false).Slot == 3);
}

TEST_CASE("only the flag 3 changes a close button's code") {
    constexpr const char16_t* plain[] = {u"00", u"10", u"20"};
    constexpr const char16_t* hovered[] = {u"01", u"11", u"21"};
    for (std::uint8_t look = 0; look < 3; ++look) {
        for (const int flag : {0, 1, 2, 4, 255}) {
            CHECK(CloseButtonCode(look, std::uint8_t(flag)).Code == plain[look]);
            CHECK(CloseButtonCode(look, std::uint8_t(flag)).Slot == 2 * look);
        }
        CHECK(CloseButtonCode(look, 3).Code == hovered[look]);
        CHECK(CloseButtonCode(look, 3).Slot == 2 * look + 1);
    }
}

TEST_CASE("a look above 2 has no code") {
    CHECK(NumberRaisedBy([] { TabIconCode(3, true); }) == 9);
    CHECK(NumberRaisedBy([] { CloseButtonCode(255, 3); }) == 9);
}

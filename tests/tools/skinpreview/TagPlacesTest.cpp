#include "tools/skinpreview/TagPlaces.h"

#include <doctest/doctest.h>

using namespace vantik;

namespace {

constexpr RECT Room = {0, 0, 400, 300};

bool Overlap(const RECT& a, const RECT& b) {
    RECT both;
    return IntersectRect(&both, &a, &b) != FALSE;
}

void CheckPlaces(const std::vector<Tag>& tags, const std::vector<RECT>& places) {
    REQUIRE(places.size() == tags.size());
    for (std::size_t i = 0; i < places.size(); ++i) {
        CAPTURE(i);
        CHECK(places[i].right - places[i].left == tags[i].Size.cx);
        CHECK(places[i].bottom - places[i].top == tags[i].Size.cy);
        CHECK((places[i].left >= Room.left && places[i].right <= Room.right));
        CHECK((places[i].top >= Room.top && places[i].bottom <= Room.bottom));
        for (std::size_t j = 0; j < i; ++j) CHECK_FALSE(Overlap(places[i], places[j]));
    }
}

} // namespace

TEST_CASE("A tag with room stands above or below the middle of what it belongs to, and hides nothing of it") {
    const std::vector<Tag> tags = {{{100, 100, 160, 200}, {20, 16}}};
    const auto places = PlaceTags(tags, Room);
    CheckPlaces(tags, places);
    CHECK_FALSE(Overlap(places[0], tags[0].Of));
    CHECK((places[0].bottom <= 100 || places[0].top >= 200));
    CHECK(std::abs((places[0].left + places[0].right) / 2 - 130) <= 3);
}

TEST_CASE("Tags of narrow pieces side by side do not hide each other, nor the pieces") {
    std::vector<Tag> tags;
    for (LONG i = 0; i < 12; ++i) tags.push_back({{100 + 8 * i, 100, 104 + 8 * i, 200}, {20, 16}});
    const auto places = PlaceTags(tags, Room);
    CheckPlaces(tags, places);
    for (const RECT& place : places)
        for (const Tag& tag : tags) CHECK_FALSE(Overlap(place, tag.Of));
}

TEST_CASE("Tags of the same piece, and of one in the corner of the room, find places in the room") {
    const std::vector<Tag> tags = {{{0, 0, 5, 5}, {20, 16}},
                                   {{0, 0, 5, 5}, {20, 16}},
                                   {{0, 0, 5, 5}, {20, 16}},
                                   {{395, 295, 400, 300}, {20, 16}}};
    CheckPlaces(tags, PlaceTags(tags, Room));
}

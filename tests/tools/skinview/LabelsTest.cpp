#include "tools/skinview/model/Labels.h"

#include <doctest/doctest.h>

using namespace vantik;

namespace {

constexpr ViewSize Full = {40, 12}, Short = {10, 12};

bool Meet(const PixelBox& a, const PixelBox& b) {
    for (std::int32_t y = a.Top; y < a.Bottom; ++y)
        for (std::int32_t x = a.Left; x < a.Right; ++x)
            if (b.Contains(x, y)) return true;
    return false;
}

} // namespace

TEST_CASE("A rectangle with room has its whole name inside") {
    const auto labels = PlaceLabels({{{0, 0, 100, 50}, Full, Short}});
    CHECK(labels[0].Kind == Label::Kind::Full);
    CHECK(labels[0].Place == PixelBox{30, 19, 70, 31});
}

TEST_CASE("A small one has its name above, for it has room there") {
    const auto labels = PlaceLabels({{{100, 20, 104, 60}, Full, Short}});
    CHECK(labels[0].Kind == Label::Kind::Full);
    CHECK(labels[0].Place == PixelBox{82, 7, 122, 19});
}

TEST_CASE("Where neighbours stand close each has its number, and who can be named without harm is named") {
    const auto labels = PlaceLabels({{{100, 20, 104, 60}, Full, Short},
                                     {{112, 20, 116, 60}, Full, Short},
                                     {{124, 20, 128, 60}, Full, Short}});
    CHECK(labels[0].Kind == Label::Kind::Full); // below, where nobody is
    CHECK(labels[0].Place == PixelBox{82, 61, 122, 73});
    CHECK(labels[1].Kind == Label::Kind::Short);
    CHECK(labels[1].Place == PixelBox{109, 7, 119, 19});
    CHECK(labels[2].Kind == Label::Kind::Short);
    CHECK(labels[2].Place == PixelBox{121, 7, 131, 19});
}

TEST_CASE("Names do not hide each other; the smaller rectangle chooses first") {
    const auto labels = PlaceLabels({{{0, 0, 100, 50}, Full, Short}, {{30, 10, 70, 40}, Full, Short}});
    CHECK(labels[1].Place == PixelBox{30, 19, 70, 31});
    CHECK(labels[0].Kind == Label::Kind::Full);
    CHECK(labels[0].Place == PixelBox{0, 0, 40, 12});
}

TEST_CASE("Where there is no room at all, there is no name") {
    const std::vector<LabelWish> wishes(6, {{100, 20, 104, 60}, Full, Short});
    const auto labels = PlaceLabels(wishes);
    int placed = 0;
    for (std::size_t i = 0; i < labels.size(); ++i) {
        if (labels[i].Kind == Label::Kind::None) continue;
        ++placed;
        for (std::size_t j = 0; j < i; ++j)
            CHECK_FALSE((labels[j].Kind != Label::Kind::None && Meet(labels[i].Place, labels[j].Place)));
    }
    CHECK(placed == 2);
}

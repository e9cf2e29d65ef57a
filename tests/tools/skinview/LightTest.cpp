#include "tools/skinview/model/Light.h"

#include <doctest/doctest.h>

#include "tools/skinview/model/Piece.h"

using namespace vantik;

namespace {

// Every pixel differs; two are transparent.
PixelImage Sheet() {
    PixelImage image(6, 4);
    for (std::int32_t y = 0; y < 4; ++y)
        for (std::int32_t x = 0; x < 6; ++x)
            image.At(x, y) = static_cast<std::uint32_t>(x << 16 | y << 8 | 0x40);
    image.At(2, 1) = KeyColour;
    image.At(5, 3) = KeyColour;
    return image;
}

const std::string Definition =
    "Start\n[Tab]\n0: 0,5,0,1\n4: 1,3,1,2 //mine\n5: 1,3,1,2\n6: 3,1,0,0\n7: 4,6,0,1\n";

} // namespace

TEST_CASE("The lit piece is a copy below the bitmap, to which its line leads") {
    const auto lit = Lit(DefinitionText(Definition), Sheet(), 4);
    REQUIRE(lit.has_value());
    std::string expected = Definition;
    expected.replace(expected.find("4: 1,3,1,2"), 10, "4: 0,2,4,5");
    CHECK(lit->Definition == expected);
    REQUIRE(lit->Bitmap.Width() == 6);
    REQUIRE(lit->Bitmap.Height() == 6);
    for (std::int32_t y = 0; y < 4; ++y)
        for (std::int32_t x = 0; x < 6; ++x) CHECK(lit->Bitmap.At(x, y) == Sheet().At(x, y));
}

TEST_CASE("Its pixels are near the light's colour, and transparent ones stay so") {
    const PixelImage bitmap = Lit(DefinitionText(Definition), Sheet(), 4)->Bitmap;
    for (std::int32_t y = 0; y < 2; ++y) {
        for (std::int32_t x = 0; x < 3; ++x) {
            const std::uint32_t before = Sheet().At(1 + x, 1 + y), after = bitmap.At(x, 4 + y);
            if (before == KeyColour) {
                CHECK(after == KeyColour);
                continue;
            }
            for (int shift = 0; shift < 24; shift += 8) {
                const int light = LightColour >> shift & 0xFF, old = static_cast<int>(before >> shift & 0xFF);
                const int now = static_cast<int>(after >> shift & 0xFF);
                CHECK(now == (old + 4 * light) / 5);
            }
        }
    }
}

TEST_CASE("What the control takes no pixels of, or none that are there, cannot be lit") {
    const DefinitionText definition(Definition);
    CHECK_FALSE(Lit(definition, Sheet(), 0).has_value());
    CHECK_FALSE(Lit(definition, Sheet(), 6).has_value());
    CHECK_FALSE(Lit(definition, Sheet(), 7).has_value());
    CHECK_FALSE(Lit(definition, Sheet(), 9).has_value());
    CHECK_FALSE(Lit(definition, Sheet(), -1).has_value());
    CHECK_FALSE(Lit(definition, PixelImage(), 4).has_value());
}

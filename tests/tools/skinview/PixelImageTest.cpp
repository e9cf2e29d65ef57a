#include "tools/skinview/model/PixelImage.h"

#include <doctest/doctest.h>

#include <span>

#include "skin/PictureFile.h"

using namespace vantik;

namespace {

std::uint32_t NumberAt(const std::string& bytes, std::size_t offset, int size) {
    std::uint32_t number = 0;
    for (int i = size - 1; i >= 0; --i)
        number = number << 8 | static_cast<unsigned char>(bytes.at(offset + static_cast<std::size_t>(i)));
    return number;
}

} // namespace

TEST_CASE("A bitmap file holds the pixels, lower rows first, each row in whole words") {
    PixelImage image(3, 2);
    for (std::int32_t y = 0; y < 2; ++y)
        for (std::int32_t x = 0; x < 3; ++x)
            image.At(x, y) = static_cast<std::uint32_t>(0x102030 + x * 0x010000 + y * 0x000001);
    const std::string file = BitmapFileOf(image);
    REQUIRE(file.size() == 54 + 2 * 12);
    CHECK(file.substr(0, 2) == "BM");
    CHECK(NumberAt(file, 2, 4) == file.size());
    CHECK(NumberAt(file, 10, 4) == 54);
    CHECK(NumberAt(file, 18, 4) == 3);
    CHECK(NumberAt(file, 22, 4) == 2);
    CHECK(NumberAt(file, 28, 2) == 24);
    for (std::size_t y = 0; y < 2; ++y)
        for (std::size_t x = 0; x < 3; ++x)
            CHECK(NumberAt(file, 54 + (1 - y) * 12 + x * 3, 3) ==
                  image.At(static_cast<std::int32_t>(x), static_cast<std::int32_t>(y)));
}

TEST_CASE("The control takes it for a whole picture") {
    const std::string file = BitmapFileOf(PixelImage(7, 5, 0x123456));
    CHECK(IsWholePicture({reinterpret_cast<const std::uint8_t*>(file.data()), file.size()}));
}

TEST_CASE("Rows can be added below") {
    PixelImage image(2, 1, 5);
    image.AddRows(2, 9);
    CHECK(image.Height() == 3);
    CHECK(image.At(1, 0) == 5);
    CHECK(image.At(0, 2) == 9);
    CHECK(PixelImage().Height() == 0);
}

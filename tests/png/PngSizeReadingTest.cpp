#include <doctest/doctest.h>

#include "render/PngSizeReading.h"
#include "tests/RunTimeErrors.h"
#include "tests/png/PngBytes.h"
#include "tests/png/TemporaryFile.h"

namespace vantik {

namespace {

PngBytes PictureOf(std::uint32_t width, std::uint32_t height) {
    return PngBytes().Header({.Width = width, .Height = height}).StoredImage({0, 1, 2, 3}).End();
}

void CheckSize(const PngSize& size, int width, int height) {
    CHECK(size.LastPngWidth == width);
    CHECK(size.LastPngHeight == height);
}

void CheckMemorySize(const Bytes& png, int width, int height) {
    PngSize size = {7, 8};
    ReadPngMemorySize(png, size);
    CheckSize(size, width, height);
}

} // namespace

TEST_CASE("the size of a PNG comes from its header") {
    const TemporaryFile file("png_size.png", PictureOf(24, 16));
    PngSize size;
    ReadPngFileSize(file.Path(), size);
    CheckSize(size, 24, 16);
    CHECK(file.Remove()); // the file is closed
    CheckMemorySize(PictureOf(24, 16), 24, 16);
}

TEST_CASE("a PNG whose IHDR width is 0 is recorded as 10 pixels wide") {
    CheckMemorySize(PictureOf(0, 16), 10, 16);
    CheckMemorySize(PictureOf(16, 0), 16, 10);
    CheckMemorySize(PictureOf(0xFFFFFFFF, 0x80000000), 10, 10);
}

TEST_CASE("a PNG wider or higher than 32767 overflows; the width is stored before the height overflows") {
    PngSize size = {7, 8};
    CHECK(NumberRaisedBy([&] { ReadPngMemorySize(PictureOf(32768, 4).All(), size); }) == 6);
    CheckSize(size, 7, 8);
    CHECK(NumberRaisedBy([&] { ReadPngMemorySize(PictureOf(4, 40000).All(), size); }) == 6);
    CheckSize(size, 4, 8);
    CheckMemorySize(PictureOf(32767, 32767), 32767, 32767);
}

TEST_CASE(
    "a file whose first chunk length runs past the end sets nothing and leaves the previous sizes in place") {
    const PngBytes broken = PngBytes().FalseChunk("IHDR", 1000, BigEndian32(5));
    const TemporaryFile file("png_size_broken.png", broken);
    PngSize size = {7, 8};
    ReadPngFileSize(file.Path(), size);
    CheckSize(size, 7, 8);
    CHECK(file.Remove());
    CheckMemorySize(broken, 7, 8);
    CheckMemorySize(PngBytes().FalseChunk("IHDR", 0x7FFFFFFF, BigEndian32(5)), 7, 8);
}

TEST_CASE(
    "ancillary chunks before IDAT do not hide the size, chunks after IHDR are walked but not read for it") {
    const PngBytes png = PngBytes()
                             .Chunk("tEXt", BytesOf("before"))
                             .Header({.Width = 24, .Height = 16})
                             .Chunk("gAMA", BigEndian32(45455))
                             .Chunk("tEXt", BytesOf("IHDR in a text"))
                             .StoredImage({0, 1, 2, 3})
                             .End();
    CheckMemorySize(png, 24, 16);
}

TEST_CASE("a missing file and a folder leave the size as it was") {
    PngSize size = {7, 8};
    ReadPngFileSize(u"no such file.png", size);
    ReadPngFileSize(u"no/such/folder/file.png", size);
    ReadPngFileSize(u"", size);
    ReadPngFileSize(u".", size);
    CheckSize(size, 7, 8);
}

TEST_CASE("a file that is no PNG is ignored") {
    CheckMemorySize({}, 7, 8);
    CheckMemorySize(BytesOf("GIF89a and more"), 7, 8);
    Bytes wrongLastByte = PictureOf(24, 16);
    wrongLastByte[7] ^= 1;
    CheckMemorySize(wrongLastByte, 7, 8);
}

TEST_CASE("a PNG cut anywhere is read as far as it goes and ends") {
    const Bytes whole = PictureOf(24, 16);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        PngSize size;
        ReadPngMemorySize({whole.data(), length}, size);
        CHECK(size.LastPngWidth == (length >= 29 ? 24 : 0));
        const TemporaryFile file("png_size_cut.png",
                                 Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)));
        PngSize fileSize;
        ReadPngFileSize(file.Path(), fileSize);
        // One byte more has to be there than in memory.
        CHECK(fileSize.LastPngWidth == (length >= 30 ? 24 : 0));
    }
}

TEST_CASE("an empty IHDR reads the previous chunk's size again") {
    Bytes header = BigEndian32(24);
    Append(header, BigEndian32(16));
    Append(header, {8, 2, 0, 0, 0});
    // The CRC of the empty chunk is read behind those bytes.
    Bytes bytes = PngBytes().Chunk("tEXt", Bytes(13, 0)).FalseChunk("IHDR", 0, header);
    Append(bytes, {0, 0, 0, 0});
    CheckMemorySize(bytes, 24, 16);
}

TEST_CASE("a header record that is too short raises a subscript error") {
    PngSize size = {7, 8};
    CHECK(NumberRaisedBy([&] { ParsePngSize(BigEndian32(5), size); }) == 9);
    CheckSize(size, 7, 8);
}

} // namespace vantik

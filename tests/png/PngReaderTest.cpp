#include <doctest/doctest.h>

#include "png/AncillaryChunks.h"
#include "tests/RunTimeErrors.h"
#include "tests/png/BitWriter.h"
#include "tests/png/DecodedPng.h"
#include "tests/png/TemporaryFile.h"

namespace vantik {

namespace {

const Bytes OnePixel = {0, 1, 2, 3};
const Bytes OnePixelRgba = {1, 2, 3, 255};

PngBytes PlainPicture() { return PngBytes().Header({}).StoredImage(OnePixel).End(); }

int ErrorNumberOf(const Bytes& png) {
    MemorySource source(png);
    PngReader reader;
    reader.Read(source);
    return reader.ErrorNumber();
}

int FileErrorNumberOf(const Bytes& png) {
    const TemporaryFile file("png_reader.png", png);
    PngReader reader;
    {
        FileSource source(file.Path());
        reader.Read(source);
    }
    CHECK(file.Remove()); // closed on every path
    return reader.ErrorNumber();
}

PngContents ContentsOf(const Bytes& png) {
    MemorySource source(png);
    PngReader reader;
    reader.Read(source);
    return reader.Contents();
}

std::u16string TextOf(std::initializer_list<const char16_t*> parts) {
    std::u16string text;
    for (const char16_t* part : parts) text = text + part + u'\0';
    return text;
}

Bytes TextChunk() {
    Bytes data = BytesOf("Title");
    data.push_back(0);
    Append(data, BytesOf("Icon"));
    return data;
}

std::int32_t BackgroundOf(const HeaderFields& fields, const Bytes& data, const Bytes& palette = {}) {
    PngBytes png;
    png.Header(fields);
    if (!palette.empty()) png.Chunk("PLTE", palette);
    const PngContents contents = ContentsOf(png.Chunk("bKGD", data).End());
    CHECK(contents.HasBackground);
    return contents.BackgroundColour;
}

} // namespace

TEST_CASE("a signature that differs in any of its 8 bytes yields error number 1 and no picture") {
    for (std::size_t i = 0; i < 8; ++i) {
        Bytes png = PlainPicture();
        png[i] ^= 0x20;
        CHECK(ErrorNumberOf(png) == 1);
        CHECK(FileErrorNumberOf(png) == 1);
        CHECK(!DecodePng(png));
    }
    CHECK(ErrorNumberOf({}) == 1);
    CHECK(FileErrorNumberOf({}) == 1);
}

TEST_CASE("IHDR and IEND but no IDAT yield error number 4") {
    CHECK(ErrorNumberOf(PngBytes().Header({}).End()) == 4);
    CHECK(FileErrorNumberOf(PngBytes().Header({}).End()) == 4);
    CHECK(ErrorNumberOf(PngBytes().End()) == 4);
}

TEST_CASE("a chunk whose declared length runs past the end yields error number 3") {
    for (const std::uint32_t length : {100u, 0x7FFFFFFFu}) {
        const Bytes png = PngBytes().Header({}).FalseChunk("IDAT", length, {1, 2, 3, 4});
        CHECK(ErrorNumberOf(png) == 3);
        CHECK(FileErrorNumberOf(png) == 3);
    }
}

TEST_CASE("a length that ends exactly at the end fits memory, but a file needs one byte more") {
    PngBytes png;
    png.Header({}).StoredImage(OnePixel).FalseChunk("IEND", 4, {1, 2, 3, 4});
    CHECK(ErrorNumberOf(png) == 0);
    CHECK(FileErrorNumberOf(png) == 3);
    Bytes longer = png;
    longer.push_back(0);
    CHECK(FileErrorNumberOf(longer) == 0);
}

TEST_CASE("a file cut anywhere before IEND ends with error 3, and with 1 inside the signature") {
    const Bytes whole = PlainPicture();
    const std::size_t toIend = whole.size() - 4; // its CRC is not needed
    for (std::size_t length = 0; length < whole.size(); ++length) {
        CAPTURE(length);
        const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        const int expected = length < 8 ? 1 : length < toIend ? 3 : 0;
        CHECK(ErrorNumberOf(cut) == expected);
        CHECK(FileErrorNumberOf(cut) == (length == toIend ? 3 : expected));
    }
}

TEST_CASE("a zero-length chunk leaves the data as it was and reads that many bytes again") {
    // The empty tEXt takes the four bytes behind it, as many as the chunk before had.
    const PngBytes png = PngBytes()
                             .Header({})
                             .Chunk("tEXt", BytesOf("abcd"))
                             .FalseChunk("tEXt", 0, BytesOf("efghCRC!"))
                             .StoredImage(OnePixel)
                             .End();
    CHECK(ContentsOf(png).Text == TextOf({u"abcd", u"efgh"}));
    CHECK(RgbaOf(png) == OnePixelRgba);
    const TemporaryFile file("png_reader_zero.png", png);
    FileSource source(file.Path());
    PngReader reader;
    CHECK(reader.Read(source));
    CHECK(reader.Contents().Text == TextOf({u"abcd", u"efgh"}));
}

TEST_CASE("a negative length counts as none, and bytes behind the end stay what they were") {
    const PngBytes png =
        PngBytes().Header({}).Chunk("tEXt", BytesOf("abcd")).FalseChunk("tEXt", 0xFFFFFFFF, BytesOf("xy"));
    CHECK(ContentsOf(png).Text == TextOf({u"abcd", u"xycd"}));
    CHECK(ErrorNumberOf(png) == 3);
    CHECK(FileErrorNumberOf(png) == 3);
}

TEST_CASE("corrupted CRCs and a corrupted Adler-32 change nothing") {
    Bytes png = PlainPicture();
    png[29] ^= 0xFF;              // of IHDR
    png[png.size() - 13] ^= 0xFF; // of IDAT
    png[png.size() - 17] ^= 0xFF; // Adler-32
    CHECK(RgbaOf(png) == OnePixelRgba);
}

TEST_CASE("unknown chunks, critical or ancillary, are skipped") {
    const PngBytes png = PngBytes()
                             .Header({})
                             .Chunk("ABCD", {1, 2, 3})
                             .Chunk("abcd", {1, 2, 3})
                             .Chunk("cHRM", Bytes(32))
                             .Chunk("idat", {1})
                             .StoredImage(OnePixel)
                             .Chunk("IENd", {1})
                             .End();
    CHECK(RgbaOf(png) == OnePixelRgba);
    CHECK(ErrorNumberOf(png) == 0);
}

TEST_CASE("chunks come in any order, image data in pieces, and later ones replace earlier ones") {
    const Bytes image = StoredBlocks(OnePixel);
    Bytes stream = {0x78, 1};
    Append(stream, image);
    stream.insert(stream.end(), 4, 0);
    PngBytes png;
    for (std::size_t i = 0; i < stream.size(); ++i)
        png.Chunk("IDAT", {stream[i]}).Chunk("gAMA", {0, 0, 0, 9});
    png.Header({.Width = 500}).Header({}).End();
    CHECK(RgbaOf(png) == OnePixelRgba);
}

TEST_CASE("two successive opens return the text of both, each chunk followed by a character 0") {
    const PngBytes first = PngBytes().Header({}).Chunk("tEXt", BytesOf("one")).StoredImage(OnePixel).End();
    const PngBytes second = PngBytes().Header({}).Chunk("tEXt", BytesOf("two")).StoredImage(OnePixel).End();
    PngReader reader;
    for (const PngBytes& png : {first, second}) {
        MemorySource source(png.All());
        CHECK(reader.Read(source));
        CHECK(ToRgba(reader.Decode(Everything)) == OnePixelRgba);
    }
    CHECK(reader.Contents().Text == TextOf({u"one", u"two"}));
}

TEST_CASE("an error number is never cleared, the flags of tRNS and bKGD are") {
    PngReader reader;
    const PngBytes full =
        PngBytes().Header({}).Chunk("bKGD", {0, 1, 0, 2, 0, 3}).Chunk("tRNS", Bytes(6)).End();
    MemorySource withoutImage(full.All());
    CHECK(!reader.Read(withoutImage));
    CHECK(reader.Contents().HasBackground);
    CHECK(reader.Contents().HasTransparency);
    const PngBytes plain = PlainPicture();
    MemorySource sound(plain.All());
    CHECK(reader.Read(sound));
    CHECK(reader.ErrorNumber() == 4);
    CHECK(!reader.Contents().HasBackground);
    CHECK(!reader.Contents().HasTransparency);
    CHECK(reader.Contents().BackgroundColour == 0x030201); // only its flag is reset
}

TEST_CASE("a file without header, palette, texts, time and gamma is read with those of the file before") {
    const HeaderFields twoIndexes = {.Width = 2, .ColourType = 3};
    const Bytes full = PngBytes()
                           .Header(twoIndexes)
                           .Chunk("PLTE", {1, 2, 3, 4, 5, 6})
                           .Chunk("zTXt", BytesOf("key"))
                           .Chunk("tIME", {0x07, 0xD9, 3, 7, 14, 5, 9})
                           .Chunk("gAMA", BigEndian32(45455))
                           .StoredImage({0, 0, 1})
                           .End();
    const Bytes bare = PngBytes().StoredImage({0, 1, 0}).End();
    PngReader reader;
    const auto open = [&](const Bytes& png) {
        MemorySource source(png);
        REQUIRE(reader.Read(source));
        return ToRgba(reader.Decode(Everything));
    };
    CHECK(open(full) == Bytes{1, 2, 3, 255, 4, 5, 6, 255});
    CHECK(open(bare) == Bytes{4, 5, 6, 255, 1, 2, 3, 255});
    CHECK(reader.Contents().CompressedText == TextOf({u"key", u""}));
    CHECK(reader.Contents().ModificationTime == u"07.03.2009 14:05:09");
    CHECK(reader.Contents().Gamma == 45455);
}

TEST_CASE("compressed texts grow from open to open, time and gamma are replaced") {
    const auto file = [](const char* key, std::uint8_t day) {
        return PngBytes()
            .Header({})
            .Chunk("zTXt", BytesOf(key))
            .Chunk("tIME", {0x07, 0xD9, 3, day, 14, 5, 9})
            .Chunk("gAMA", BigEndian32(day))
            .StoredImage(OnePixel)
            .End();
    };
    PngReader reader;
    for (const PngBytes& png : {file("one", 1), file("two", 2)}) {
        MemorySource source(png.All());
        CHECK(reader.Read(source));
    }
    CHECK(reader.Contents().CompressedText == TextOf({u"one", u"", u"two", u""}));
    CHECK(reader.Contents().ModificationTime == u"02.03.2009 14:05:09");
    CHECK(reader.Contents().Gamma == 2);
}

TEST_CASE("whether there is an alpha channel is known when a picture was converted, not before") {
    PngReader reader;
    const auto open = [&](const Bytes& png) {
        return NumberRaisedBy([&] {
            MemorySource source(png);
            if (reader.Read(source)) reader.Decode(Everything);
        });
    };
    const HeaderFields alpha = {.ColourType = 6};
    const Bytes sound = PngBytes().Header(alpha).StoredImage({0, 1, 2, 3, 4}).End();
    const Bytes tooShort = PngBytes().Header(alpha).StoredImage({0, 1, 2, 3}).End();
    BitWriter literals;
    literals.Block(true, 1);
    for (int i = 0; i < 300; ++i) literals.Fixed(0);
    Bytes stream = {0x78, 0x9C};
    Append(stream, literals.Bytes());
    const Bytes brokenBehind = PngBytes().Header(alpha).Chunk("IDAT", stream).End();
    const Bytes withoutImage = PngBytes().Header(alpha).End();

    CHECK(open(withoutImage) == 0);
    CHECK(!reader.HasAlpha()); // decoding never began
    CHECK(open(tooShort) == 9);
    CHECK(!reader.HasAlpha());
    CHECK(open(sound) == 0);
    CHECK(reader.HasAlpha());
    CHECK(open(withoutImage) == 0);
    CHECK(reader.HasAlpha()); // decoding never began
    CHECK(open(brokenBehind) == 9);
    CHECK(!reader.HasAlpha());
    CHECK(open(sound) == 0);
    CHECK(open(PlainPicture()) == 0);
    CHECK(!reader.HasAlpha());
}

TEST_CASE("after a reset a reader is as new") {
    PngReader reader;
    const auto read = [&](const Bytes& png) {
        MemorySource source(png);
        return reader.Read(source);
    };
    CHECK_FALSE(read(PngBytes().Header({}).End()));
    CHECK(read(PngBytes()
                   .Header({.ColourType = 6})
                   .Chunk("PLTE", {1, 2, 3})
                   .Chunk("tEXt", TextChunk())
                   .Chunk("zTXt", {'k', 0, 0, 0x78, 0x9C, 0x4B, 0x4C, 0x4A, 6, 1})
                   .Chunk("tIME", {7, 217, 3, 7, 14, 5, 9})
                   .Chunk("gAMA", BigEndian32(45455))
                   .Chunk("bKGD", {0, 1, 0, 2, 0, 3})
                   .Chunk("tRNS", {1})
                   .StoredImage({0, 1, 2, 3, 4})
                   .End()));
    CHECK(reader.Decode(Everything));
    reader.Reset();
    CHECK(reader.ErrorNumber() == 0);
    CHECK_FALSE(reader.HasAlpha());
    const PngContents& contents = reader.Contents();
    CHECK(contents.Header.Width == 0);
    CHECK(contents.ImageData.empty());
    CHECK(contents.Palette.empty());
    CHECK(contents.Transparency.empty());
    CHECK_FALSE(contents.HasTransparency);
    CHECK_FALSE(contents.HasBackground);
    CHECK(contents.BackgroundColour == 0);
    CHECK(contents.Text.empty());
    CHECK(contents.CompressedText.empty());
    CHECK(contents.ModificationTime.empty());
    CHECK(contents.Gamma == 0);
    CHECK(read(PlainPicture()));
    CHECK(ToRgba(reader.Decode(Everything)) == OnePixelRgba);
}

TEST_CASE("an empty chunk finds nothing of the file before in a reader's memory") {
    const Bytes sound = PlainPicture();
    const Bytes emptyFirst = PngBytes().FalseChunk("IHDR", 0, {}).End();
    PngReader reader;
    for (int round = 0; round < 2; ++round) {
        MemorySource picture(sound);
        CHECK(reader.Read(picture));
        MemorySource source(emptyFirst);
        CHECK(NumberRaisedBy([&] { reader.Read(source); }) == 9); // no 13 bytes
    }
}

TEST_CASE("image data of an earlier open is not used again") {
    PngReader reader;
    const PngBytes plain = PlainPicture();
    MemorySource sound(plain.All());
    CHECK(reader.Read(sound));
    const PngBytes none = PngBytes().Header({}).End();
    MemorySource empty(none.All());
    CHECK(!reader.Read(empty));
    CHECK(reader.ErrorNumber() == 4);
}

TEST_CASE("tIME 2009-03-07 14:05:09 yields the text 07.03.2009 14:05:09") {
    CHECK(ContentsOf(PngBytes().Chunk("tIME", {0x07, 0xD9, 3, 7, 14, 5, 9}).End()).ModificationTime ==
          u"07.03.2009 14:05:09");
    CHECK(ContentsOf(PngBytes().Chunk("tIME", {0, 5, 255, 100, 0, 60, 61}).End()).ModificationTime ==
          u"100.255.5 00:60:61");
    // The year is a signed 16-bit number.
    CHECK(ContentsOf(PngBytes().Chunk("tIME", {0xFF, 0xFF, 1, 1, 0, 0, 0}).End()).ModificationTime ==
          u"01.01.-1 00:00:00");
}

TEST_CASE("a gAMA of 45455 reads back") {
    CHECK(ContentsOf(PngBytes().Chunk("gAMA", BigEndian32(45455)).End()).Gamma == 45455);
}

TEST_CASE("chunks too short for their records raise a subscript error") {
    for (const char* name : {"IHDR", "gAMA", "tIME"}) {
        CHECK(NumberRaisedBy([&] { ContentsOf(PngBytes().Chunk(name, {1, 2, 3}).End()); }) == 9);
        CHECK(NumberRaisedBy([&] { ContentsOf(PngBytes().FalseChunk(name, 0)); }) == 9);
    }
}

TEST_CASE("a tEXt of Title, a zero byte and Icon gives eleven characters") {
    const std::u16string text = ContentsOf(PngBytes().Chunk("tEXt", TextChunk()).End()).Text;
    CHECK(text.size() == 11);
    CHECK(text == TextOf({u"Title", u"Icon"}));
}

TEST_CASE("a zTXt whose stream has no zero byte gives its whole text") {
    BitWriter stream;
    stream.Block(true, 1);
    for (const char c : std::string("Icon")) stream.Fixed(static_cast<unsigned char>(c));
    stream.Fixed(256);
    Bytes data = BytesOf("Title");
    Append(data, {0, 0, 0x78, 0x9C});
    // A last byte 0, of end-of-block bits alone, would be cut away; the text is there by then.
    Append(data, stream.Bytes());
    CHECK(ContentsOf(PngBytes().Chunk("zTXt", data).End()).CompressedText == TextOf({u"Title", u"Icon"}));
}

TEST_CASE(
    "a zTXt whose compressed stream contains a zero byte yields only what inflates from the bytes before "
    "it") {
    Bytes data = BytesOf("Title");
    Append(data, {0, 0, 0x78, 0x9C});
    BitWriter stream;
    stream.Block(true, 1).Fixed('I').Fixed('c');
    Append(data, stream.Bytes());
    Append(data, {0, 0x55, 0xAA, 0x55});
    CHECK(ContentsOf(PngBytes().Chunk("zTXt", data).End()).CompressedText == TextOf({u"Title", u"Ic"}));
}

TEST_CASE("a zTXt without separator, stream or anything gives empty texts") {
    CHECK(ContentsOf(PngBytes().Chunk("zTXt", BytesOf("Title")).End()).CompressedText ==
          TextOf({u"Title", u""}));
    CHECK(ContentsOf(PngBytes().FalseChunk("zTXt", 0, Bytes(4)).End()).CompressedText == TextOf({u"", u""}));
    CHECK(ContentsOf(PngBytes().Chunk("zTXt", {'a', 0, 0, 0x78}).End()).CompressedText ==
          TextOf({u"a", u""}));
}

TEST_CASE("a zTXt with literals beyond 12 times its last index and 100 more raises, its keyword is kept") {
    // Five bytes: x, a copy of 148 that ends at the limit's index 12 x 4 + 100, and a literal behind it.
    BitWriter stream;
    stream.Block(true, 1).Fixed('x').Fixed(281).Number(148 - 131, 5).FixedDistance(0).Fixed('y');
    const Bytes& compressed = stream.Bytes();
    REQUIRE(compressed.size() == 5);
    REQUIRE(FindZero(compressed) == 5);
    Bytes data = {'k', 0, 0, 0x78, 0x9C};
    Append(data, compressed);
    const PngBytes png = PngBytes().Chunk("zTXt", BytesOf("first")).Chunk("zTXt", data).End();
    MemorySource source(png.All());
    PngReader reader;
    CHECK(NumberRaisedBy([&] { reader.Read(source); }) == 9);
    CHECK(reader.Contents().CompressedText == TextOf({u"first", u"", u"k"}));
}

TEST_CASE("a bKGD level beyond the bit depth, or data of another size, gives 0") {
    CHECK(BackgroundOf({.ColourType = 0}, {300 >> 8, 300 & 0xFF}) == 0);
    CHECK(BackgroundOf({.ColourType = 0}, {0, 200}) == 0xC8C8C8);
    CHECK(BackgroundOf({.ColourType = 4}, {0, 200}) == 0xC8C8C8);
    CHECK(BackgroundOf({.ColourType = 0}, {0, 0, 1}) == 0);
    CHECK(BackgroundOf({.BitDepth = 2, .ColourType = 0}, {0, 1}) == 0x555555);
    CHECK(BackgroundOf({.BitDepth = 16, .ColourType = 0}, {0xFF, 0xFF}) == 0xFFFFFF);
    CHECK(BackgroundOf({.BitDepth = 16, .ColourType = 4}, {0x80, 0x00}) == 0x808080); // 127.502 rounds to 128
    CHECK(BackgroundOf({.ColourType = 2}, {0, 200}) == 0);
}

TEST_CASE("a 16-bit RGB bKGD of (65535, 0, 0) gives pure red") {
    CHECK(BackgroundOf({.BitDepth = 16, .ColourType = 2}, {0xFF, 0xFF, 0, 0, 0, 0}) == 255);
    CHECK(BackgroundOf({.ColourType = 6}, {0, 1, 0, 2, 0, 3}) == 0x030201);
    CHECK(BackgroundOf({.ColourType = 2}, {1, 1, 0, 2, 0, 3}) == 0x0302FF); // beyond the depth: the highest
    CHECK(BackgroundOf({.BitDepth = 0, .ColourType = 2}, {1, 1, 0, 2, 0, 3}) == 0);
}

TEST_CASE("the bKGD of a palette image is an entry of PLTE, 0 when that does not fit") {
    const Bytes palette = {1, 2, 3, 4, 5, 6};
    CHECK(BackgroundOf({.ColourType = 3}, {1}, palette) == 0x060504);
    CHECK(BackgroundOf({.ColourType = 3}, {2}, palette) == 0);
    CHECK(BackgroundOf({.ColourType = 3}, {0, 1}, palette) == 0);
    CHECK(BackgroundOf({.ColourType = 3}, {0}) == 0);
}

TEST_CASE("a bKGD before IHDR is evaluated with colour type 0 and bit depth 0") {
    const PngContents contents =
        ContentsOf(PngBytes().Chunk("bKGD", {0, 200}).Header({.ColourType = 0}).End());
    CHECK(contents.HasBackground);
    CHECK(contents.BackgroundColour == 0);
    CHECK(ContentsOf(PngBytes().Chunk("bKGD", {0, 0}).End()).BackgroundColour == 0);
}

TEST_CASE("a bKGD before IHDR is evaluated with the colour type and bit depth of the file before") {
    PngReader reader;
    const auto backgroundOf = [&](const Bytes& png) {
        MemorySource source(png);
        reader.Read(source);
        return reader.Contents().BackgroundColour;
    };
    const Bytes greyFirst = PngBytes().Chunk("bKGD", {0, 1}).Header({.ColourType = 2}).End();
    backgroundOf(PngBytes().Header({.BitDepth = 2, .ColourType = 0}).End());
    CHECK(backgroundOf(greyFirst) == 0x555555);
    CHECK(backgroundOf(greyFirst) == 0); // of colour type 2 by now, which takes 6 bytes
    backgroundOf(PngBytes().Header({.BitDepth = 4, .ColourType = 0}).End());
    CHECK(backgroundOf(greyFirst) == 0x111111);
}

TEST_CASE("files that cannot be opened raise their own errors") {
    CHECK(NumberRaisedBy([] { FileSource(u"no such file.png"); }) == 53);
    CHECK(NumberRaisedBy([] { FileSource(u"no/such/folder/file.png"); }) == 76);
}

TEST_CASE("a file larger than the reading buffer comes in whole") {
    PngBytes png;
    png.Header({});
    for (int i = 0; i < 40; ++i) png.Chunk("tEXt", Bytes(5000, 'x'));
    png.Chunk("tEXt", Bytes(200000, 'y')).StoredImage(OnePixel).End();
    const TemporaryFile file("png_reader_large.png", png);
    FileSource source(file.Path());
    PngReader reader;
    REQUIRE(reader.Read(source));
    CHECK(reader.Contents().Text.size() == 40 * 5001 + 200001);
    CHECK(ToRgba(reader.Decode(Everything)) == OnePixelRgba);
}

TEST_CASE("paths are UTF-16 and may hold any character") {
    const TemporaryFile plain("png_reader_plain.png", PlainPicture());
    CHECK(FileSource(plain.Path()).Size() == static_cast<std::int64_t>(PlainPicture().All().size()));
}

} // namespace vantik

#include <doctest/doctest.h>

#include <algorithm>
#include <numeric>

#include "png/BitReader.h"
#include "png/Inflate.h"
#include "tests/RunTimeErrors.h"
#include "tests/png/BitWriter.h"
#include "tests/png/PngBytes.h"

namespace vantik {

namespace {

struct Inflated {
    Bytes Data;
    std::int32_t Result = 1;
    std::int32_t Limit = 0;
};

Inflated InflateAll(const Bytes& stream, std::int32_t expectedSize, bool deflate64 = false) {
    Inflated inflated{stream, 1, expectedSize};
    Inflater().Inflate(inflated.Data, inflated.Limit, deflate64, inflated.Result);
    return inflated;
}

int ErrorOf(const Bytes& stream, std::int32_t expectedSize) {
    return NumberRaisedBy([&] { InflateAll(stream, expectedSize); });
}

void CheckEnd(const Bytes& stream, std::int32_t result, const Bytes& output,
              std::int32_t expectedSize = 1000) {
    const Inflated inflated = InflateAll(stream, expectedSize);
    CHECK(inflated.Result == result);
    CHECK(inflated.Data == output);
}

Bytes Counting(std::size_t size) {
    Bytes bytes(size);
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<std::uint8_t>(i * 7 + i / 256);
    return bytes;
}

Bytes Without(Bytes bytes, std::size_t last) {
    bytes.resize(bytes.size() - last);
    return bytes;
}

// A real stream is followed by its checksum; some checks of stored blocks look that far.
Bytes WithTrailer(Bytes bytes) {
    Append(bytes, {0, 0, 0, 0});
    return bytes;
}

// The header of a dynamic block whose code-length code gives 0, 1, 17 and 18 two bits each, or 16, 17, 18 and 1.
BitWriter& DynamicHeader(BitWriter& bits, unsigned literals, unsigned distances, bool withRepeat) {
    bits.Block(true, 2).Number(literals - 257, 5).Number(distances - 1, 5).Number(18 - 4, 4);
    // In the order 16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1
    const unsigned lengths[18] = {
        withRepeat ? 2u : 0u, 2, 2, withRepeat ? 0u : 2u, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2};
    for (const unsigned length : lengths) bits.Number(length, 3);
    return bits;
}

} // namespace

TEST_CASE("a stream of a single stored final block reproduces its bytes exactly") {
    for (const std::size_t size : {0u, 1u, 5u, 300u, 65535u}) {
        const Bytes data = Counting(size);
        CheckEnd(WithTrailer(StoredBlocks(data)), 0, data, static_cast<std::int32_t>(size));
    }
    CheckEnd(WithTrailer(StoredBlocks(Counting(200000))), 0, Counting(200000), 200000);
}

TEST_CASE(
    "a stored block needs one byte behind its length fields, so an empty one at the very end is broken") {
    CheckEnd({1, 0, 0, 0xFF, 0xFF}, -1, {});
    CheckEnd({1, 0, 0, 0xFF, 0xFF, 0}, 0, {});
    CheckEnd({1, 1, 0, 0xFE, 0xFF, 'a'}, 0, BytesOf("a"));
}

TEST_CASE("bytes fetched for a code that turned out shorter count when a stored block looks for its room") {
    // Literal 0 has 15 bits, so 15 are fetched for the end-of-block code of one bit: a byte or two more than the header
    // of the stored block behind it needs.
    BitWriter block;
    block.Block(false, 2).Number(0, 5).Number(0, 5).Number(15, 4);
    const unsigned lengths[19] = {0, 0, 2, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2, 2}; // 18, 0, 1 and 15
    for (const unsigned length : lengths) block.Number(length, 3);
    block.Code(2, 2).Code(3, 2).Number(127, 7).Code(3, 2).Number(117 - 11, 7).Code(1, 2).Code(0, 2);
    block.Code(0, 1).Block(true, 0); // end of block
    const std::size_t bitsAtEnd = 3 + 14 + 19 * 3 + 2 + 9 + 9 + 2 + 2;
    const std::size_t fetched = (bitsAtEnd + 15 + 7) / 8;
    block.Align().Byte(1).Byte(0).Byte(0xFE).Byte(0xFF).Byte('a');
    while (block.Bytes().size() < fetched + 4) block.Byte(0);
    CheckEnd(block.Bytes(), -1, {});
    CheckEnd(block.Byte(0).Bytes(), 0, BytesOf("a"));
}

TEST_CASE("a stored block whose NLEN is not the complement of LEN still copies LEN bytes and ends with -2") {
    Bytes stream = WithTrailer(StoredBlocks(Counting(20)));
    stream[3] ^= 1;
    CheckEnd(stream, -2, Counting(20));
}

TEST_CASE("a mismatch is remembered over later blocks and forgotten when the input breaks") {
    Bytes stored = StoredBlocks(Counting(3));
    stored[0] = 0; // not final
    stored[3] ^= 1;
    Bytes stream = stored;
    Append(stream, WithTrailer(StoredBlocks(Counting(2))));
    Bytes expected = Counting(3);
    Append(expected, Counting(2));
    CheckEnd(stream, -2, expected);
    CheckEnd(stored, -1, Counting(3));
}

TEST_CASE("a stored block beyond the input or the output ends with -1 and copies nothing") {
    CheckEnd(Without(StoredBlocks(Counting(20)), 1), -1, {});
    CheckEnd(WithTrailer(StoredBlocks(Counting(102))), 0, Counting(102), 1); // indexes 0 to 101
    CheckEnd(WithTrailer(StoredBlocks(Counting(103))), -1, {}, 1);
}

TEST_CASE("a stream whose last block is not final ends with -1 and keeps what was decoded") {
    BitWriter bits;
    bits.Block(false, 1).Fixed('a').Fixed('b').Fixed(256);
    CheckEnd(bits.Bytes(), -1, BytesOf("ab"));
}

TEST_CASE("input that ends inside a block ends with -1 and keeps what was decoded") {
    BitWriter bits;
    bits.Block(true, 1);
    for (unsigned i = 0; i < 100; ++i) bits.Fixed('a' + i % 26);
    const Bytes stream = bits.Bytes();
    for (std::size_t length = 0; length <= stream.size(); ++length) {
        const Inflated inflated =
            InflateAll(Bytes(stream.begin(), stream.begin() + static_cast<std::ptrdiff_t>(length)), 100);
        CHECK(inflated.Result == -1);
        const std::size_t symbols = length == 0 ? 0 : (length * 8 - 3) / 8;
        CHECK(inflated.Data.size() == symbols);
    }
    CheckEnd({}, -1, {});
}

TEST_CASE("a reader of few bytes points to nothing before them") {
    const std::vector<std::uint8_t> memory(3 * BitReader::Margin);
    const std::uint8_t* const begin = memory.data() + BitReader::Margin;
    for (std::ptrdiff_t size = 0; size <= 2 * BitReader::Margin; ++size) {
        const BitReader reader({begin, static_cast<std::size_t>(size)});
        MirroredInput mirror;
        const BitReader::Registers bits = reader.Load(mirror);
        CHECK(bits.Safe >= begin);
        CHECK((bits.Next < bits.Safe) == reader.IsFarFromEnd());
    }
}

TEST_CASE("a block type of 3 ends at once with -1") {
    CheckEnd(BitWriter().Block(true, 3).Number(0, 30).Bytes(), -1, {});
    CheckEnd(BitWriter().Block(false, 1).Fixed('a').Fixed(256).Block(true, 3).Number(0, 30).Bytes(), -1,
             BytesOf("a"));
}

TEST_CASE("a back-reference with distance 1 and length 258 repeats the previous byte 258 times") {
    BitWriter bits;
    bits.Block(true, 1).Fixed('x').Fixed(285).FixedDistance(0).Fixed(256);
    CheckEnd(bits.Bytes(), 0, Bytes(259, 'x'));
}

TEST_CASE("overlapping copies repeat the pattern for every distance") {
    for (unsigned distance = 1; distance <= 4; ++distance) {
        BitWriter bits;
        bits.Block(true, 1);
        for (unsigned i = 0; i < 4; ++i) bits.Fixed('a' + i);
        bits.Fixed(264).FixedDistance(distance - 1).Fixed(256); // length 10
        for (int padding = 0; padding < 40; ++padding) bits.Number(0, 8);
        Bytes expected = BytesOf("abcd");
        for (unsigned i = 0; i < 10; ++i) expected.push_back(expected[expected.size() - distance]);
        CheckEnd(bits.Bytes(), 0, expected);
    }
}

TEST_CASE("a stream that would produce more than the limit through back-references is cut at the limit") {
    for (const int padding : {0, 40}) { // near the end of the input and far from it
        BitWriter bits;
        bits.Block(true, 1).Fixed('x');
        for (int i = 0; i < 10; ++i) bits.Fixed(285).FixedDistance(0);
        bits.Fixed(256);
        for (int i = 0; i < padding; ++i) bits.Number(0, 8);
        const Inflated inflated = InflateAll(bits.Bytes(), 400);
        CHECK(inflated.Limit == 500);
        CHECK(inflated.Result == 0);             // as after a final block
        CHECK(inflated.Data == Bytes(500, 'x')); // the byte at the limit itself is given up
    }
}

TEST_CASE("an output that ends exactly at the limit's index is not cut") {
    for (const int padding : {0, 40}) {
        BitWriter bits;
        bits.Block(true, 1).Fixed('x').Fixed(285).FixedDistance(0).Fixed(256); // 259 bytes
        for (int i = 0; i < padding; ++i) bits.Number(0, 8);
        CheckEnd(bits.Bytes(), 0, Bytes(259, 'x'), 158); // indexes 0 to 258
        CheckEnd(bits.Bytes(), 0, Bytes(257, 'x'), 157); // indexes 0 to 257
    }
}

TEST_CASE("literals behind the limit raise a subscript error") {
    for (const int padding : {0, 40}) {
        BitWriter bits;
        bits.Block(true, 1);
        for (int i = 0; i < 110; ++i) bits.Fixed('x');
        bits.Fixed(256);
        for (int i = 0; i < padding; ++i) bits.Number(0, 8);
        CHECK(ErrorOf(bits.Bytes(), 8) == 9);
        CHECK(ErrorOf(bits.Bytes(), 9) == 0); // indexes 0 to 109
    }
}

TEST_CASE("a reference to what lies before the start raises a subscript error") {
    for (const int padding : {0, 40}) {
        BitWriter bits;
        bits.Block(true, 1).Fixed('a').Fixed('b').Fixed(257).FixedDistance(2).Fixed(256);
        for (int i = 0; i < padding; ++i) bits.Number(0, 8);
        CHECK(ErrorOf(bits.Bytes(), 100) == 9);
    }
    BitWriter first;
    first.Block(true, 1).Fixed(257).FixedDistance(0).Fixed(256);
    CHECK(ErrorOf(first.Bytes(), 100) == 9);
}

TEST_CASE("a reference behind the limit cuts the output off, even one to what lies before the start") {
    BitWriter bits;
    bits.Block(true, 1).Fixed('a').Fixed('b').Fixed(257).FixedDistance(3).Fixed(256); // indexes 0 and 1 only
    CheckEnd(bits.Bytes(), 0, BytesOf("a"), -99);
    CHECK(ErrorOf(bits.Bytes(), -98) == 9);
}

TEST_CASE("symbols that no valid stream uses end with -1") {
    for (const int padding : {0, 40}) {
        for (const unsigned symbol : {286u, 287u}) {
            BitWriter bits;
            bits.Block(true, 1).Fixed('a').Fixed(symbol);
            for (int i = 0; i < padding + 4; ++i) bits.Number(0, 8);
            CheckEnd(bits.Bytes(), -1, BytesOf("a"));
        }
        for (const unsigned symbol : {30u, 31u}) {
            BitWriter bits;
            bits.Block(true, 1).Fixed('a').Fixed(257).FixedDistance(symbol);
            for (int i = 0; i < padding + 4; ++i) bits.Number(0, 8);
            CheckEnd(bits.Bytes(), -1, BytesOf("a"));
        }
    }
}

TEST_CASE("a repeat with nothing to repeat ends with -5") {
    BitWriter bits;
    DynamicHeader(bits, 257, 1, true).Code(1, 2).Number(0, 2); // codes in order: 1, 16, 17, 18
    CheckEnd(bits.Number(0, 32).Bytes(), -5, {});
}

TEST_CASE("behind a run of zeros it is a zero that is repeated") {
    for (const int padding : {0, 40}) { // near the end of the input and far from it
        BitWriter bits;
        DynamicHeader(bits, 257, 1, true);                                 // codes in order: 1, 16, 17, 18
        bits.Code(0, 2);                                                   // literal 0 has one bit
        bits.Code(2, 2).Number(10 - 3, 3).Code(1, 2).Number(3, 2);         // 17 and 16: none for 10 and 6
        bits.Code(3, 2).Number(20 - 11, 7).Code(1, 2).Number(2, 2);        // 18 and 16: none for 20 and 5
        bits.Code(3, 2).Number(138 - 11, 7).Code(3, 2).Number(76 - 11, 7); // none up to literal 255
        bits.Code(0, 2).Code(0, 2); // one bit each for the end and the distance
        bits.Code(0, 1).Code(0, 1).Code(1, 1);
        for (int i = 0; i < padding; ++i) bits.Number(0, 8);
        CheckEnd(bits.Bytes(), 0, {0, 0});
    }
}

TEST_CASE("a repeat past all lengths ends with -6") {
    BitWriter bits;
    DynamicHeader(bits, 257, 1, true);
    bits.Code(3, 2).Number(127, 7).Code(3, 2).Number(127, 7); // 18 twice: 276 of 258
    CheckEnd(bits.Number(0, 32).Bytes(), -6, {});
}

TEST_CASE("too many codes for their lengths end with -1") {
    BitWriter bits;
    DynamicHeader(bits, 257, 1, true);
    bits.Code(0, 2).Code(0, 2).Code(0, 2); // three codes of one bit
    bits.Code(3, 2).Number(127, 7).Code(3, 2).Number(117 - 11, 7);
    CheckEnd(bits.Number(0, 32).Bytes(), -1, {});

    BitWriter codeLengths;
    codeLengths.Block(true, 2).Number(0, 5).Number(0, 5).Number(0, 4);
    for (int i = 0; i < 4; ++i) codeLengths.Number(1, 3);
    CheckEnd(codeLengths.Number(0, 32).Bytes(), -1, {});
}

TEST_CASE("a code with gaps is accepted, and a gap in it that the stream uses ends with -1") {
    // Literal 0 and end of block have two bits each, no distance code.
    BitWriter bits;
    bits.Block(true, 2).Number(0, 5).Number(0, 5).Number(15, 4);
    const unsigned lengths[19] = {0, 0, 1, 2, 0, 0, 0, 0, 0, 0,
                                  0, 0, 0, 0, 0, 2, 0, 0, 0}; // 18: 1, 0 and 2: 2 bits
    for (const unsigned length : lengths) bits.Number(length, 3);
    bits.Code(3, 2);                                               // 0 has length 2
    bits.Code(0, 1).Number(127, 7).Code(0, 1).Number(117 - 11, 7); // 1 to 255 nothing
    bits.Code(3, 2).Code(2, 2);                                    // 256 has length 2, the distance none
    const auto withCodes = [&](unsigned first, unsigned second) {
        BitWriter all = bits;
        all.Code(first, 2).Code(second, 2).Number(0, 32);
        return all.Bytes();
    };
    CheckEnd(withCodes(0, 1), 0, {0});
    CheckEnd(withCodes(0, 2), -1, {0});
    CheckEnd(withCodes(3, 1), -1, {});
}

namespace {

// Codes of every length: k ones and a zero, and one of nothing but ones.
BitWriter& Staircase(BitWriter& bits, unsigned symbol) {
    const unsigned length = std::min(symbol + 1, 15u);
    return bits.Code((1u << length) - (symbol < 15 ? 2 : 1), length);
}

// A block whose literals a to n have codes of 1 to 14 bits and whose end and shortest copy have the two of 15; so have the
// distances.
void StaircaseHeader(BitWriter& bits) {
    const auto length = [&](unsigned number) { bits.Code(number - 1, 4); };
    const auto zeros = [&](unsigned count) { bits.Code(15, 4).Number(count - 11, 7); };
    bits.Block(true, 2).Number(1, 5).Number(15, 5).Number(15, 4);
    for (unsigned i = 0; i < 19; ++i)
        bits.Number(i == 0 || i == 1 || i == 3 ? 0 : 4, 3); // all but 16, 17 and 0
    zeros('a');
    for (unsigned i = 1; i <= 14; ++i) length(i);
    zeros(134);
    zeros(11);
    length(15);
    length(15);
    for (unsigned i = 1; i <= 16; ++i) length(std::min(i, 15u));
}

constexpr unsigned FirstDistances[] = {1, 2, 3, 4, 5, 7, 9, 13, 17, 25, 33, 49, 65, 97, 129, 193};

// Literals, then a copy from every distance, again and again.
Bytes StaircaseBody(BitWriter& bits) {
    Bytes expected;
    for (unsigned round = 0; round < 20; ++round) {
        for (unsigned i = 0; i < 200; ++i) {
            Staircase(bits, i % 14);
            expected.push_back(static_cast<std::uint8_t>('a' + i % 14));
        }
        for (unsigned symbol = 0; symbol < 16; ++symbol) {
            Staircase(Staircase(bits, 15), symbol).Number(0, symbol < 4 ? 0 : symbol / 2 - 1);
            for (int i = 0; i < 3; ++i)
                expected.push_back(expected[expected.size() - FirstDistances[symbol]]);
        }
    }
    Staircase(bits, 14); // the end
    return expected;
}

} // namespace

TEST_CASE("codes of every length are found, near the end of the input and far from it") {
    for (const unsigned padding : {0u, 40u}) {
        BitWriter bits;
        StaircaseHeader(bits);
        const Bytes expected = StaircaseBody(bits);
        for (unsigned i = 0; i < padding; ++i) bits.Byte(0xFF);
        for (const bool usesFreeShifts : {false, HasFreeShifts()}) {
            Bytes data = bits.Bytes();
            auto size = static_cast<std::int32_t>(expected.size());
            std::int32_t result = 1;
            Inflater(usesFreeShifts).Inflate(data, size, false, result);
            CHECK(result == 0);
            CHECK(data == expected);
        }
    }
}

TEST_CASE("mirrored input has the bits of every byte in reverse, wherever it is held from") {
    const Bytes input = Counting(5000);
    MirroredInput mirror;
    const std::uint8_t* const end = input.data() + input.size();
    for (const std::size_t at : {0u, 1u, 100u, 2040u, 2041u, 4900u, 4999u, 3u}) {
        const std::uint8_t* const next = input.data() + at;
        mirror.Hold(next, end, 16);
        REQUIRE(mirror.End() >= std::min(next + 16, end));
        REQUIRE(mirror.End() <= end);
        for (const std::uint8_t* byte = next; byte < mirror.End(); ++byte) {
            unsigned reversed = 0;
            for (unsigned bit = 0; bit < 8; ++bit) reversed |= (*byte >> bit & 1u) << (7 - bit);
            CHECK(mirror.At(byte)[0] == reversed);
        }
    }
    CHECK(MirrorBits(1) == std::uint64_t{1} << 63);
    CHECK(MirrorBits(0x0203) == std::uint64_t{0xC04} << 52);
}

TEST_CASE("a Deflate64 stream gives length 258 its own 16 bits") {
    BitWriter bits;
    bits.Block(true, 1).Fixed('x').Fixed(285).Number(997, 16).FixedDistance(0).Fixed(256);
    const Inflated inflated = InflateAll(bits.Bytes(), 2000, true);
    CHECK(inflated.Result == 0);
    CHECK(inflated.Data == Bytes(1001, 'x'));
}

TEST_CASE("fixed and dynamic blocks follow one another on one object") {
    Inflater inflater;
    BitWriter fixed;
    fixed.Block(true, 1).Fixed('a').Fixed(256);
    for (int i = 0; i < 3; ++i) {
        Bytes data = fixed.Bytes();
        std::int32_t size = 10;
        std::int32_t result = 1;
        inflater.Inflate(data, size, false, result);
        CHECK(result == 0);
        CHECK(data == BytesOf("a"));
        CHECK(size == 110);
    }
}

TEST_CASE("an expected size that leaves no room, or too much, raises") {
    CHECK(ErrorOf({}, -100) == 0);
    CHECK(ErrorOf({}, -101) == 9);
    CHECK(ErrorOf({}, 0x7FFFFFFF) == 6);
}

} // namespace vantik

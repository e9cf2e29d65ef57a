#include "base/Numbers.h"

#include <doctest/doctest.h>

#include <cmath>
#include <cstdlib>
#include <string>

#include "tests/RunTimeErrors.h"

using namespace vantik;

TEST_CASE("a whole number may stand between spaces and carry a sign") {
    CHECK(ToInteger32(u"  42 ") == 42);
    CHECK(ToInteger32(u"-7") == -7);
    CHECK(ToInteger32(u"+7") == 7);
}

TEST_CASE("a decimal fraction is rounded half to even") {
    CHECK(ToInteger32(u"0.5") == 0);
    CHECK(ToInteger32(u"1.5") == 2);
    CHECK(ToInteger32(u"2.5") == 2);
    CHECK(ToInteger32(u"-1.5") == -2);
    CHECK(ToInteger32(u".6") == 1);
    CHECK(ToInteger32(u"3.") == 3);
}

TEST_CASE("an exponent scales the number") {
    CHECK(ToInteger32(u"1e3") == 1000);
    CHECK(ToInteger32(u"1.25E1") == 12); // 12.5, half to even
    CHECK(ToInteger32(u"1e-400") == 0);
}

TEST_CASE("a half is one by its digits, however far out they differ") {
    CHECK(ToInteger32(u"0.50000000000000000000000000") == 0);
    CHECK(ToInteger32(u"0.50000000000000000000000001") == 1);
    CHECK(ToInteger32(u"2.49999999999999999999999999") == 2);
    CHECK(ToInteger32(u"0.05e1") == 0);
    CHECK(ToInteger32(u"0.06e1") == 1);
    CHECK(ToInteger32(u"1500e-3") == 2);
    CHECK(ToInteger32(u"0.005") == 0);
    CHECK(ToInteger32(u"005") == 5);
}

TEST_CASE("an exponent without bounds says as much as a large one") {
    CHECK(ToInteger32(u"1e-99999999999999999999999") == 0);
    CHECK(ToInteger32(u"0e99999999999999999999999") == 0);
    CHECK(NumberRaisedBy([] { ToInteger32(u"1e99999999999999999999999"); }) == 6);
    CHECK(ToInteger32(u"0.000000000000000000001e21") == 1);
    CHECK(ToInteger32(u"1000000000000000000000e-21") == 1);
}

// A double holds 15 digits exactly enough that its half is the text's half.
TEST_CASE("any number of few digits is the double of its text, rounded half to even") {
    std::uint32_t seed = 1;
    const auto below = [&](std::uint32_t bound) {
        seed = seed * 1664525 + 1013904223;
        return (seed >> 8) % bound;
    };
    for (int round = 0; round < 20'000; ++round) {
        std::string text = below(2) ? "-" : "";
        text += std::to_string(below(1u << (4 + below(20))));
        if (below(3)) text += "." + std::to_string(below(2) ? below(100'000) : 5);
        if (below(4) == 0) text += "e" + std::to_string(static_cast<int>(below(7)) - 4);
        const double expected = std::nearbyint(std::strtod(text.c_str(), nullptr));
        if (std::abs(expected) > 2e9) continue;
        CAPTURE(text);
        CHECK(ToInteger32(std::u16string(text.begin(), text.end())) == static_cast<std::int32_t>(expected));
    }
}

TEST_CASE("hexadecimal digits are the bit pattern of the result") {
    CHECK(ToInteger32(u"&H1F") == 31);
    CHECK(ToInteger32(u"&hffff") == 65535);
    CHECK(ToInteger16(u"&HFFFF") == -1);
    CHECK(ToInteger32(u"&HFFFFFFFF") == -1);
}

TEST_CASE("text that is no number is a type mismatch") {
    for (const char16_t* text :
         {u"",    u" ",   u"x",  u"1 2", u"1x", u"--1", u"+-1",   u"&H",    u"&HG",    u"&H-1",
          u"inf", u"nan", u"1e", u"1e+", u".",  u".e1", u"1.2.3", u"1e2.5", u"\u0661", u"1\t"})
        CHECK(NumberRaisedBy([&] { ToInteger32(text); }) == 13);
}

TEST_CASE("a number that does not fit overflows") {
    CHECK(ToInteger16(u"32767") == 32767);
    CHECK(NumberRaisedBy([] { ToInteger16(u"32768"); }) == 6);
    CHECK(ToInteger32(u"-2147483648") == INT32_MIN);
    CHECK(NumberRaisedBy([] { ToInteger32(u"2147483648"); }) == 6);
    CHECK(NumberRaisedBy([] { ToInteger32(u"1e999"); }) == 6);
    CHECK(NumberRaisedBy([] { ToInteger16(u"&H10000"); }) == 6);
}

TEST_CASE("what is no number, or does not fit, is quoted as it stands there") {
    CHECK(TextRaisedBy([] { ToInteger32(u" abc"); }) == "\" abc\" is not a number");
    CHECK(TextRaisedBy([] { ToInteger32(u""); }) == "\"\" is not a number");
    CHECK(TextRaisedBy([] { ToInteger16(u"40000"); }) == "\"40000\" is no number from -32768 to 32767");
    CHECK(TextRaisedBy([] { ToInteger32(u"-1e10"); }) ==
          "\"-1e10\" is no number from -2147483648 to 2147483647");
}

#include "base/Numbers.h"

#include <doctest/doctest.h>

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

TEST_CASE("hexadecimal digits are the bit pattern of the result") {
    CHECK(ToInteger32(u"&H1F") == 31);
    CHECK(ToInteger32(u"&hffff") == 65535);
    CHECK(ToInteger16(u"&HFFFF") == -1);
    CHECK(ToInteger32(u"&HFFFFFFFF") == -1);
}

TEST_CASE("text that is no number is a type mismatch") {
    for (const char16_t* text : {u"", u" ", u"x", u"1 2", u"1x", u"--1", u"+-1", u"&H", u"&HG", u"&H-1",
                                 u"inf", u"nan", u"1e", u".", u"\u0661", u"1\t"})
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

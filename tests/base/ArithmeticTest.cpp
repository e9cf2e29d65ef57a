#include <doctest/doctest.h>

#include "base/Checked.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "tests/RunTimeErrors.h"

using namespace vantik;

TEST_CASE("checked arithmetic gives the sum, the difference and the product or overflows") {
    CHECK(Checked(2) + 3 == 5);
    CHECK(Checked(2) - 3 == -1);
    CHECK(Checked(-2) * 3 == -6);
    CHECK(NumberRaisedBy([] { (void)(Checked(INT32_MAX) + 1); }) == 6);
    CHECK(NumberRaisedBy([] { (void)(Checked(INT32_MIN) - 1); }) == 6);
    CHECK(NumberRaisedBy([] { (void)(Checked(65536) * 32768); }) == 6);
    CHECK(Add16(32766, 1) == 32767);
    CHECK(NumberRaisedBy([] { Add16(32767, 1); }) == 6);
    CHECK(NumberRaisedBy([] { Subtract16(-32768, 1); }) == 6);
}

TEST_CASE("rounding to a whole number goes half to even") {
    CHECK(RoundHalfToEven(2.5) == 2);
    CHECK(RoundHalfToEven(3.5) == 4);
    CHECK(RoundHalfToEven(-2.5) == -2);
    CHECK(NumberRaisedBy([] { RoundHalfToEven(2147483648.0); }) == 6);
    CHECK(NumberRaisedBy([] { RoundHalfToEven(0.0 / 0.0); }) == 6);
}

TEST_CASE("twips become pixels by dividing whole numbers") {
    CHECK(TwipsToPixels(299.6, 15) == 20);
    CHECK(TwipsToPixels(299.5, 15) == 20); // 300 after rounding half to even
    CHECK(TwipsToPixels(298.5, 15) == 19);
    CHECK(TwipsToPixels(-16, 15) == -1);  // truncated, not floored
    CHECK(TwipsToPixels(100, 14.5) == 7); // the factor rounds to 14
    CHECK(TwipsToPixels(100, 14.6) == 6); // to 15
    CHECK(TwipsToPixels(100, 7.5) == 12); // to 8
    CHECK(NumberRaisedBy([] { TwipsToPixels(100, 0); }) == 11);
}

TEST_CASE("trimming takes spaces only") {
    CHECK(TrimSpaces(u"  a b ") == u"a b");
    CHECK(TrimSpaces(u"\ta ") == u"\ta");
    CHECK(TrimSpaces(u"   ") == u"");
}

TEST_CASE("decimal text has a sign only when negative") {
    CHECK(DecimalText(0) == u"0");
    CHECK(DecimalText(-12) == u"-12");
}

TEST_CASE("upper case and comparison ignore case") {
    CHECK(UpperCase(u"aZ9\u00E9") == u"AZ9\u00C9");
    CHECK(EqualIgnoringCase(u"btnOk", u"BTNOK"));
    CHECK_FALSE(EqualIgnoringCase(u"btnOk", u" btnOk"));
}

#include "render/ShortenCaption.h"

#include <doctest/doctest.h>

#include <string>

using namespace vantik;

namespace {

bool Cjk(char16_t c) noexcept { return c >= 0x4E00 && c <= 0x9FFF; }

// doctest prints char strings: everything outside ASCII becomes "#".
std::string Short(std::u16string_view caption, std::int32_t budget) {
    std::string ascii;
    for (const char16_t c : ShortenCaption(caption, budget, Cjk))
        ascii += c < 0x80 ? static_cast<char>(c) : '#';
    return ascii;
}

} // namespace

TEST_CASE("a caption that fits is used whole") {
    CHECK(Short(u"Caption", 7) == "Caption");
    CHECK(Short(u"", 0) == "");
}

TEST_CASE("a caption that does not fit is cut so that it fits together with the dots") {
    CHECK(Short(u"Caption", 6) == "Cap...");
    CHECK(Short(u"Caption", 4) == "C...");
    CHECK(Short(u"Caption", 3) == "...");
}

TEST_CASE("a budget too small for the dots holds as many of them as fit") {
    CHECK(Short(u"Caption", 2) == "..");
    CHECK(Short(u"Caption", 0) == "");
    CHECK(Short(u"Caption", -5) == "");
}

TEST_CASE("a caption of double-byte characters is shortened after half as many characters") {
    CHECK(Short(u"\u4e00\u4e01\u4e02\u4e03\u4e04", 10) == "#####");
    CHECK(Short(u"abcdefghij", 10) == "abcdefghij");
    CHECK(Short(u"\u4e00\u4e01\u4e02\u4e03\u4e04", 9) == "###...");
    CHECK(Short(u"\u4e00\u4e01\u4e02\u4e03\u4e04", 8) ==
          "##..."); // a unit stays empty rather than half a character
    CHECK(Short(u"a\u4e01bcdefgh", 6) == "a#...");
}

TEST_CASE("a surrogate pair counts two and is never cut in half") {
    CHECK(Short(u"\U0001F600\U0001F600", 4) == "####");
    CHECK(Short(u"a\U0001F600\U0001F600", 4) == "a...");
    CHECK(Short(u"a\U0001F600\U0001F600", 3) == "...");
    CHECK(ShortenCaption(u"\U0001F600\U0001F600\U0001F600", 5, Cjk) == u"\U0001F600...");
    CHECK(Short(u"\xD83Dz", 2) == "#z"); // half a pair is a character like any other
}

TEST_CASE("a very long caption and a very large budget are no trouble") {
    const std::u16string endless(100000, u'x');
    CHECK(ShortenCaption(endless, 2147483647, Cjk) == endless);
    CHECK(ShortenCaption(endless, -2147483647 - 1, Cjk).empty());
    CHECK(ShortenCaption(endless, 10, Cjk) == u"xxxxxxx...");
}

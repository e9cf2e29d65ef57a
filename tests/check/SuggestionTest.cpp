#include "check/Suggestion.h"

#include <doctest/doctest.h>

#include "check/Utf8.h"

using namespace vantik;

namespace {

constexpr std::u16string_view Words[] = {u"File", u"DELETEBUTTON", u"FillPic0", u"FillPic1"};

bool Means(std::u16string_view text, std::u16string_view word) { return Nearest(text, Words) == word; }

} // namespace

TEST_CASE("The distance counts letters that are wrong, missing, too many or swapped") {
    CHECK(EditDistance(u"", u"") == 0);
    CHECK(EditDistance(u"", u"abc") == 3);
    CHECK(EditDistance(u"abc", u"abc") == 0);
    CHECK(EditDistance(u"abc", u"abd") == 1);
    CHECK(EditDistance(u"abc", u"ac") == 1);
    CHECK(EditDistance(u"abc", u"abcd") == 1);
    CHECK(EditDistance(u"abcd", u"acbd") == 1);
    CHECK(EditDistance(u"kitten", u"sitting") == 3);
    CHECK(EditDistance(u"ab", u"ba") == 1);
    CHECK(EditDistance(u"abcdef", u"badcfe") == 3);
}

TEST_CASE(
    "The nearest word is one mistake in three letters off at most, whatever the case and the blanks around") {
    CHECK(Means(u" flie ", u"File"));
    CHECK(Means(u"F", u""));
    CHECK(Means(u"Fole", u"File"));
    CHECK(Means(u"Fooo", u""));
    CHECK(Means(u"deletbuton", u"DELETEBUTTON"));
    CHECK(Means(u"dltbttn", u""));
    CHECK(Means(u"FillPic1", u"FillPic1"));
    CHECK(Means(u"FilPic0", u"FillPic0"));
    CHECK(Means(u"", u""));
    CHECK(Means(std::u16string(41, u'F'), u""));
}

TEST_CASE("UTF-8 is told from other bytes beyond ASCII") {
    CHECK(FirstBeyondAscii("plain") == std::string_view::npos);
    CHECK(FirstBeyondAscii("caf\xE9") == 3);
    CHECK(FirstBeyondAscii("\x80") == 0);
    for (const char* text :
         {"", "plain", "\xC3\xA9", "\xE6\xAD\xA4", "\xF0\x9F\x98\x80", "\xC2\x80", "\xF4\x8F\xBF\xBF"})
        CHECK(IsUtf8(text));
    for (const char* text : {"caf\xE9", "\xC3", "\xC3\x28", "\xA9", "\xC1\x81", "\xE6\xAD",
                             "\xF5\x80\x80\x80", "\xE6\x28\xA4", "\xB4\xCB\xC3\xFB"})
        CHECK_FALSE(IsUtf8(text));
}

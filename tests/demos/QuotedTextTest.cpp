#include "host/QuotedText.h"

#include <doctest/doctest.h>

using namespace vantik;

TEST_CASE("Any text comes back out of its quotation marks, on one line") {
    for (const std::wstring text :
         {L"", L"plain", L"say \"yes\"", L"C:\\Temp\\", L"one\r\ntwo", L"\x4E2D n"}) {
        CHECK(Quoted(text).find_first_of(L"\r\n") == std::wstring::npos);
        CHECK(Unquoted(Quoted(text)) == text);
    }
}

TEST_CASE("A text that does not end, or goes on behind its end, is refused") {
    CHECK_THROWS_WITH(Unquoted(L"\"open"), "the text has no closing quotation mark");
    CHECK_THROWS_WITH(Unquoted(L"\"open\\\""), "the text has no closing quotation mark");
    CHECK_THROWS_WITH(Unquoted(L"\"a\" b"), "there is more behind the text");
}

TEST_CASE("Blanks are those of any kind") { CHECK(Trimmed(L" \t a b\r\n") == L"a b"); }

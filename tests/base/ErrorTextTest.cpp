#include "base/ErrorText.h"

#include <doctest/doctest.h>

#include "tests/RunTimeErrors.h"

using namespace vantik;

TEST_CASE("an error says its number's own text unless it was given one") {
    CHECK(TextRaisedBy([] { Raise(RunTimeErrorNumber::Overflow); }) == "Overflow");
    CHECK(TextRaisedBy([] { Raise(RunTimeErrorNumber::Overflow, u"line ", 12, u" is too long"); }) ==
          "line 12 is too long");
    CHECK(NumberRaisedBy([] { Raise(RunTimeErrorNumber::Overflow, u"x"); }) == 6);
}

TEST_CASE("whoever knows the place explains an error on its way; its number stays") {
    const auto inFile = [](auto operation) {
        Explaining(operation,
                   [](const RunTimeError& error) { return ErrorText(u"a.ini: ", error.Description()); });
    };
    CHECK(TextRaisedBy([&] { inFile([] { Raise(RunTimeErrorNumber::TypeMismatch); }); }) ==
          "a.ini: Type mismatch");
    CHECK(TextRaisedBy([&] { inFile([&] { inFile([] { Raise(RunTimeErrorNumber::Overflow, u"x"); }); }); }) ==
          "a.ini: a.ini: x");
    CHECK(NumberRaisedBy([&] { inFile([] { Raise(RunTimeErrorNumber::TypeMismatch); }); }) == 13);
    CHECK(Explaining([] { return 7; }, [](const RunTimeError&) { return ErrorText(u"never"); }) == 7);
}

TEST_CASE("an explanation that there was no memory for changes nothing") {
    RunTimeError error(RunTimeErrorNumber::DiskFull, u"c.bmp");
    error.Explain(u"");
    CHECK(error.Description() == std::u16string(u"c.bmp"));
}

TEST_CASE("paths are shown without the doubled backslashes that joining leaves, but for a computer's name") {
    CHECK(ErrorText(PathText{u"C:\\app\\Skin\\\\a.png"}) == u"C:\\app\\Skin\\a.png");
    CHECK(ErrorText(PathText{u"\\\\server\\\\share\\a"}) == u"\\\\server\\share\\a");
}

TEST_CASE("quotations of hostile length are cut, and null characters in them end no text") {
    CHECK(ErrorText(Quoted{std::u16string(1000, u'x')}).size() == 85);
    CHECK(ErrorText(Quoted{std::u16string_view(u"a\0b", 3)}, u"!") == u"\"a b\"!");
}

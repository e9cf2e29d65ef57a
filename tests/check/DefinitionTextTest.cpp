#include "check/DefinitionText.h"

#include <doctest/doctest.h>

#include <string>

using namespace vantik;

namespace {

const std::string Sample =
    "// mine\r\n"
    "  start\r\n"
    "[Tab] \r\n"
    "file:  a b.bmp // the art\r\n"
    " 5 : 13, 16 ,0,21,9 //LeftPic0\r\n"
    "\r\n"
    "26: 1,2,3\r\n"
    "nothing\r\n"
    "[ICON]\n"
    "5: five.png\n"
    "End\n"
    "5: 1,1,1,1\n";

std::string KindsOf(const DefinitionText& text) {
    std::string kinds;
    for (const DefinitionLine& line : text.Lines()) kinds += "sSb/[:?e."[static_cast<int>(line.Kind)];
    return kinds;
}

const DefinitionLine& Line(const DefinitionText& text, std::size_t number) {
    return text.Lines().at(number - 1);
}

} // namespace

TEST_CASE("Each line of a definition is what the control takes it for") {
    const DefinitionText text(Sample);
    CHECK(KindsOf(text) == "sS[::b:?[:e.");
    CHECK(Line(text, 3).Section == SectionKind::Tab);
    CHECK(Line(text, 8).Section == SectionKind::Tab);
    CHECK(Line(text, 10).Section == SectionKind::Icon);
}

TEST_CASE("Keys, values, numbers and comments are known by their places") {
    const DefinitionText text(Sample);
    const DefinitionLine &file = Line(text, 4), &rect = Line(text, 5);
    CHECK(text.At(file.Key) == "file");
    CHECK(text.At(file.Value) == "a b.bmp");
    CHECK(text.At(file.Comment) == "// the art");
    CHECK(file.IsFile);
    CHECK(text.At(rect.Key) == "5 ");
    CHECK(rect.Rect == 5);
    REQUIRE(rect.Numbers.size() == 5);
    CHECK(text.At(rect.Numbers[1]) == "16");
    CHECK(text.At(rect.Numbers[4]) == "9");
    CHECK(text.LineAt(rect.Numbers[1].Begin).Number == 5);
    CHECK(text.ColumnAt(rect.Numbers[1].Begin) == 10);
    CHECK_FALSE(Line(text, 7).Rect);
    CHECK(Line(text, 7).Numbers.size() == 3);
    CHECK(Line(text, 10).Numbers.empty());
}

TEST_CASE("A number is changed where it stands and all else stays") {
    DefinitionText text(Sample);
    std::string expected = Sample;
    expected.replace(expected.find("16"), 2, "-1234");
    CHECK(text.SetNumber(5, 1, -1234));
    CHECK(text.Bytes() == expected);
    CHECK(text.At(text.EntryOf(5)->Numbers[2]) == "0");
    CHECK_FALSE(text.SetNumber(6, 1, 7));
    CHECK_FALSE(text.SetNumber(5, 5, 7));
    CHECK(text.Bytes() == expected);
}

TEST_CASE("Between two commas, and behind the last, stands a number that is empty") {
    const DefinitionText text("Start\n[Tab]\n3: 1,, 2 ,");
    const std::vector<Span>& numbers = Line(text, 3).Numbers;
    REQUIRE(numbers.size() == 4);
    CHECK(text.At(numbers[1]).empty());
    CHECK(text.ColumnAt(numbers[1].Begin) == 6);
    CHECK(text.At(numbers[2]) == "2");
    CHECK(numbers[3] == Span{text.Bytes().size(), text.Bytes().size()});
    CHECK_FALSE(text.RectOf(Line(text, 3)));
}

TEST_CASE("The entry of a rectangle is the last one before the end") {
    const DefinitionText text("Start\n[Tab]\n3: 1,2,3,4\n3: 5,6,7,8\nEnd\n3: 9,9,9,9");
    CHECK(text.EntryOf(3)->Number == 4);
    CHECK(text.EntryOf(4) == nullptr);
}

TEST_CASE("An empty definition has one line, and a section line its last character in vain") {
    CHECK(KindsOf(DefinitionText("")) == "s");
    CHECK(DefinitionText("").ColumnAt(0) == 1);
    CHECK(Line(DefinitionText("Start\n[Tabx"), 2).Section == SectionKind::Tab);
    CHECK(Line(DefinitionText("Start\n[Tab] x"), 2).Section == SectionKind::Other);
    CHECK(Line(DefinitionText("Start\n["), 2).Section == SectionKind::Other);
}

TEST_CASE("Lines end with CR LF, CR or LF") {
    const DefinitionText text("Start\r[Tab]\n\r\n1: 2");
    CHECK(KindsOf(text) == "S[b:");
    CHECK(text.LineAt(12).Number == 3);
    CHECK(text.LineAt(14).Number == 4);
}

#include "tools/skinview/model/Piece.h"

#include <doctest/doctest.h>

#include "tools/skinview/model/PieceTexts.h"

using namespace vantik;

namespace {

const std::string Sample =
    "// mine\r\n"
    "Start\r\n"
    "[Tab]\r\n"
    "File: a.bmp\r\n"
    "  5 : 13, 16 ,0,21,9 //LeftPic0\r\n"
    "1: 13,0,0,21\r\n"
    "7: 1,2,x,4\r\n"
    "8: 1,2,3\r\n"
    "9: 1,2000000,3,4\n"
    "10: 1,2,3,4\n"
    "10:&H10,20,3,4\n"
    "[Icon]\n"
    "11: 1,2,3,4\n"
    "End\n"
    "12: 1,2,3,4\n";

std::vector<std::int32_t> IndexesOf(const std::vector<Piece>& pieces) {
    std::vector<std::int32_t> indexes;
    for (const Piece& piece : pieces) indexes.push_back(piece.Index);
    return indexes;
}

} // namespace

TEST_CASE("The pieces are the rectangles that the control would read, the last entry of each") {
    const auto pieces = PiecesOf(DefinitionText(Sample));
    CHECK(IndexesOf(pieces) == std::vector<std::int32_t>{1, 5, 10});
    CHECK(pieces[1].Numbers == EdgeNumbers{13, 16, 0, 21});
    CHECK(pieces[1].Line == 5);
    CHECK(pieces[2].Numbers == EdgeNumbers{16, 20, 3, 4});
    CHECK(pieces[2].Line == 11);
    CHECK(FindPiece(pieces, 10) == &pieces[2]);
    CHECK(FindPiece(pieces, 7) == nullptr);
}

TEST_CASE("All four edges lie inside a rectangle, whichever way round they stand") {
    CHECK(Piece{5, {13, 16, 0, 21}, 1}.Box() == PixelBox{13, 0, 17, 22});
    CHECK(Piece{1, {13, 0, 0, 21}, 1}.Box() == PixelBox{0, 0, 14, 22});
    CHECK(Piece{1, {3, 3, 9, 2}, 1}.Box() == PixelBox{3, 2, 4, 10});
}

TEST_CASE("New numbers stand where the old ones stood, and nothing else is touched") {
    const std::string changed = WithNumbers(DefinitionText(Sample), 5, {13, 160, 0, 7});
    std::string expected = Sample;
    expected.replace(expected.find("13, 16 ,0,21,9"), 14, "13, 160 ,0,7,9");
    CHECK(changed == expected);
}

TEST_CASE("A number that stays keeps its spelling") {
    const std::string changed = WithNumbers(DefinitionText(Sample), 10, {16, 21, 3, 4});
    CHECK(changed.find("10:&H10,21,3,4\n") != std::string::npos);
    CHECK(changed.find("10: 1,2,3,4\n") != std::string::npos);
}

TEST_CASE("A rectangle without numbers gets none") {
    CHECK(WithNumbers(DefinitionText(Sample), 7, {1, 2, 3, 4}) == Sample);
    CHECK(WithNumbers(DefinitionText(Sample), 20, {1, 2, 3, 4}) == Sample);
}

TEST_CASE("Rows of the lists") {
    CHECK(TitleOf(2) == "2 FillPic0");
    CHECK(TitleOf(24) == "24");
    CHECK(RowOf(Piece{5, {13, 16, 0, 21}, 4}) == "5\tLeftPic0\t13\t16\t0\t21\t4 x 22");
    CHECK(PlaceOf(Piece{5, {13, 16, 0, 21}, 4}) == "left 13, right 16, top 0, bottom 21: 4 x 22 pixels");
    CHECK(RowOf(Fault{Severity::Error, "SKIN.INI", 3, 6, "Wrong", "RIGHT", ""}) ==
          "error\tline 3, column 6\tWrong; did you mean RIGHT?");
    CHECK(RowOf(Fault{Severity::Warning, "SKIN.INI", 3, 6, "Odd", "", ""}) ==
          "warning\tline 3, column 6\tOdd");
}

TEST_CASE("Every piece that is drawn has a purpose, and no other") {
    for (std::int32_t index = 0; index <= 22; ++index) CHECK(PurposeOf(index)[0] != '\0');
    CHECK(PurposeOf(23)[0] == '\0');
    CHECK(PurposeOf(-1)[0] == '\0');
}

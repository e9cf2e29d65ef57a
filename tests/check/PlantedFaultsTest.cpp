// Faults planted one by one in a skin that has none, each to be found where it stands.
#include <doctest/doctest.h>

#include <algorithm>

#include "check/CheckSkin.h"
#include "check/RectNames.h"
#include "tests/check/SkinWithoutFaults.h"

using namespace vantik;

namespace {

constexpr Severity E = Severity::Error, W = Severity::Warning;

struct Planted {
    int Line;         // in place of this line of the skin
    const char* Text; // stands this, perhaps several lines or none
    int AtLine, AtColumn;
    vantik::Severity Severity;
    const char* What;       // a part of it
    const char* Meant = ""; // all of it
    std::size_t Others = 0; // faults that follow from it
};

const Planted Definitions[] = {
    // start and end
    {1, "", 1, 1, E, "no line begins with Start"},
    {1, "Strat", 1, 1, E, "\"Strat\" starts no definition", "Start"},
    {1, "//\n  \tStart", 2, 3, E, "starts no definition", "Start"},
    {1, "End\nStart", 1, 1, E, "ends before a line that begins with Start"},
    {1, "\n 0: 1,2,3,4\nStart", 2, 2, W, "\"0: 1,2,3,4\" stands before Start"},
    {32, "Endless: home.png", 32, 1, E, "begins with End and ends the definition"},
    {33, "end of it\n\n  [Icon]", 35, 3, W, "stands behind End"},
    // encoding
    {1, "\xEF\xBB\xBFStart", 1, 1, E, "byte order mark",
     "ANSI, the system's code page, among the editor's encodings"},
    {1, "\xEF\xBB\xBF// art\nStart", 1, 1, W, "byte order mark",
     "ANSI, the system's code page, among the editor's encodings"},
    {1, "\xFF\xFE\x53", 1, 1, E, "UTF-16", "ANSI, the system's code page, among the editor's encodings"},
    {32, "Home: home.png // caf\xC3\xA9", 32, 22, W, "ends with a letter beyond ASCII and LF alone",
     "lines ended by CR LF"},
    {3, "File: sk\xC3\xADn.bmp", 3, 9, E, "a name in UTF-8", "ANSI, the system's code page, in the editor"},
    {32, "Home: caf\xE9.png", 32, 10, W, "a letter beyond ASCII in a name"},
    // sections
    {2, "[Tab] // rectangles", 2, 7, E, "text behind the bracket", "[Tab] in a line of its own"},
    {27, "[Caf\xE9] icons\n[Icon]", 27, 8, E, "text behind the bracket",
     "[Caf\xC3\xA9] in a line of its own"},
    {2, "[Tabs]", 2, 1, E, "\"[Tabs]\" is no section", "[Tab]"},
    {2, "  [Tab", 2, 3, E, "without its closing bracket", "[Tab]"},
    {2, "[Tab)", 2, 5, W, "without its closing bracket", "]"},
    {2, "", 3, 1, E, "an entry before the first section", "[Tab] in a line above it"},
    {27, "[Icons]", 27, 1, E, "\"[Icons]\" is no section", "[Icon]"},
    {27, "[Author]\nName: me\n[Icon]", 27, 1, W, "\"[Author]\" is no section"},
    {27, "\t[Icon]", 27, 1, E, "neither an entry nor a comment", "a section without a tab in front of it", 6},
    // lines that say nothing
    {32, "Home = home.png", 32, 1, E, "neither an entry nor a comment", "Home:"},
    {32, "Caf\xE9 = home.png", 32, 1, E, "neither an entry nor a comment", "Caf\xC3\xA9:"},
    {32, "; Home", 32, 1, W, "neither an entry nor a comment", "a comment, which begins with //"},
    {9, "5: 0,1,0,9\n # left: end", 10, 2, E, "\"# left\" is not a number",
     "a comment, which begins with //"},
    // keys
    {3, "Flie: skin.bmp", 3, 1, E, "\"Flie\" is not a number", "File:"},
    {3, "File : skin.bmp", 3, 1, E, "without a blank before the colon", "File:"},
    {9, "LeftPc0: 0,1,0,9", 9, 1, E, "\"LeftPc0\" is not a number", "5, the number of LeftPic0", 1},
    {9, "5: 0,1,0,9\n26: 0,1,0,9", 10, 1, E, "there is no rectangle 26, only 0 to 25"},
    {9, "5: 0,1,0,9\n99999: 0,1,0,9", 10, 1, E, "\"99999\" is no number from -32768 to 32767"},
    {9, "5: 0,1,0,9\n24: 0,1,0,9", 10, 1, W, "nothing is drawn of rectangle 24"},
    {9, "5: 0,1,0,9\n05: 0,1,0,9", 10, 1, W, "\"05\" stands in line 9 already"},
    {3, "File: skin.bmp\nFILE: skin.bmp", 4, 1, W, "\"FILE\" stands in line 3 already"},
    {32, "Home: home.png\n home: home.png", 33, 2, W, "\"home\" stands in line 32 already"},
    // numbers
    {9, "5: 0, x,0,9", 9, 7, E, "\" x\" is not a number"},
    {9, "5: 0,\t1,0,9", 9, 6, E, "is not a number", "spaces in place of tabs, which are not taken off"},
    {9, "5: 0,1,0 // 9", 9, 9, E, "\"0,1,0\" is too short"},
    {9, "5:", 9, 3, E, "is too short"},
    {9, "5: 0,1,0,", 9, 10, E, "\"\" is not a number"},
    {9, "5: 0,1,0,99999999999", 9, 10, E, "is no number from"},
    {9, "5: -2147483648,1,0,9", 9, 4, E, "is too large a rectangle"},
    {9, "5: 0,1,0,9,7", 9, 12, W, "more than the four numbers"},
    {9, "5: 0,1.4,0,9", 9, 6, W, "\"1.4\" is no plain number", "1"},
    // rectangles
    {9, "", 2, 1, W, "not given: rectangle 5 (LeftPic0)"},
    {4, "", 2, 1, W, "not given: rectangle 0 (TabRect)"},
    {9, "5: 0,60,0,9", 9, 6, E, "rectangle 5 (LeftPic0) lies outside the bitmap, which is 60 pixels wide"},
    {9, "5: -1,1,0,9", 9, 4, E, "lies outside the bitmap, which is 60 pixels wide"},
    {18, "14: 0,3,27,30", 18, 12, E, "lies outside the bitmap, which is 30 pixels high"},
    {18, "14: 0,3,-1,2", 18, 9, E, "lies outside the bitmap, which is 30 pixels high"},
    {22, "18: 5,5,30,0", 22, 9, E, "lies outside the bitmap, which is 30 pixels high"},
    {9, "5: 3,1,0,9", 9, 6, E, "rectangle 5 (LeftPic0) has its right edge before its left one"},
    {9, "5: 2,1,0,9", 9, 6, E, "rectangle 5 (LeftPic0) is 0 pixels wide"},
    {9, "5: 0,1,4,3", 9, 10, E, "rectangle 5 (LeftPic0) is 0 pixels high"},
    {9, "5: 0,1,9,0", 9, 10, E, "rectangle 5 (LeftPic0) has its bottom edge above its top one"},
    {5, "1: 9,0,9,0", 5, 10, E, "rectangle 1 (BRect) has its bottom edge above its top one"},
    {26, "22: 8,9,25,25", 26, 7, W,
     "rectangle 22 (FRightLine) is 2 pixels wide and rectangle 20 (FBottomLine) 1 pixel"},
    {11, "7: 20,21,0,10", 11, 12, W,
     "rectangle 7 (LeftPic2) is 11 pixels high and the row (BRect) 10 pixels"},
    {11, "7: 20,21,0,8", 9, 10, W,
     "rectangle 5 (LeftPic0) is higher than its active look, rectangle 7 (LeftPic2)", "", 1},
    {6, "2: 2,3,0,9", 6, 6, W, "rectangle 2 (FillPic0) is more than one column"},
    // the bitmap
    {3, "", 2, 1, E, "no entry File names the bitmap", "File: skin.bmp in a line below it"},
    {3, "File:", 3, 6, E, "no file is named"},
    {3, "File: skim.bmp", 3, 7, E, "there is no file \"skim.bmp\""},
    {3, "File: art\\skin.bmp", 3, 7, W, "\"art\\skin.bmp\" is a name with a path", "skin.bmp"},
    {3, "File: C:\\skin.bmp", 3, 7, E, "with its whole path", "skin.bmp"},
    {3, "File: skin?.bmp", 3, 7, E, "has a character that no file name on Windows has"},
    {3, "File: deep.bmp", 3, 7, W, "the bitmap has 8 bits a pixel", "a BMP file of 24 bits a pixel"},
    {3, "File: four.bmp", 3, 7, W, "the bitmap has 32 bits a pixel", "a BMP file of 24 bits a pixel"},
    {3, "File: cut.bmp", 3, 7, E, "is no picture, or not all of it is there",
     "a BMP file of 24 bits a pixel"},
    {3, "File: skin.gif", 3, 7, W, "the bitmap is a GIF or JPEG picture", "a BMP file of 24 bits a pixel"},
    {3, "File: home.png", 3, 7, E, "without pixels that the control could cut",
     "a BMP file of 24 bits a pixel"},
    // icons
    {28, "DeletButton: a.png", 28, 1, E, "\"DeletButton\" is the name of a tab icon", "DELETEBUTTON"},
    {28, "DeleteButton : a.png", 28, 1, E, "for the blank before the colon belongs to it", "DELETEBUTTON"},
    {31, "", 27, 1, W, "there is no icon MENUBAR"},
    {32, "Home: hone.png", 32, 7, E, "there is no file \"hone.png\""},
    {28, "DeleteButton: z.png", 28, 15, E, "there is no file \"z.png\""},
    {32, "Home: cut.png", 32, 7, E, "nothing can be drawn of \"cut.png\": the file ends too early"},
    {32, "Home: text.png", 32, 7, E, "nothing can be drawn of \"text.png\": it is no PNG file"},
    {32, "Home: torn.png", 32, 7, E, "nothing can be drawn of \"torn.png\": its data are damaged"},
    {28, "DeleteButton: wide.png", 28, 15, E,
     "nothing can be drawn of \"wide.png\": it is wider or higher than 32,767"},
    {32, "Home: large.png", 32, 7, W, "the icon has 21 x 16 pixels", "an icon of 20 x 20 pixels at most"},
    {32, "Home: locked.png", 32, 7, E, "\"locked.png\" cannot be read"},
    {32, "Home: twice.png", 32, 7, W,
     "on disk there are Twice.png and twice.png, which differ in case alone"},
    {32, "Home: home.png\t", 32, 7, E, "has a character that no file name",
     "spaces in place of tabs, which are not taken off"},
};

Bytes Beginning(Bytes bytes, std::size_t size) {
    bytes.resize(size);
    return bytes;
}

std::vector<Fault> FaultsOf(const Planted& planted) {
    std::vector<std::string> lines = LinesWithoutFaults();
    lines[static_cast<std::size_t>(planted.Line) - 1] = planted.Text;
    MadeSkin skin = SkinWithFiles(Joined(lines));
    const Bytes bitmap = BitmapOfDepth(24).File(), icon = PngOfSize(16, 16);
    skin.With(u"art\\skin.bmp", bitmap).With(u"deep.bmp", BitmapOfDepth(8).File());
    skin.With(u"four.bmp", BitmapOfDepth(32).File()).With(u"cut.bmp", Beginning(bitmap, bitmap.size() - 1));
    skin.With(u"skin.gif", BytesOf("GIF89a")).With(u"text.png", BytesOf("no picture"));
    skin.With(u"cut.png", Beginning(icon, icon.size() - 4)).With(u"caf\u00E9.png", icon);
    skin.With(u"torn.png", PngBytes().Header({.Width = 9, .Height = 9}).StoredImage({0, 1}).End());
    skin.With(u"wide.png", PngOfSize(32768, 1)).With(u"large.png", PngOfSize(21, 16));
    skin.With(u"just.png", PngOfSize(20, 20));
    skin.With(u"Twice.png", icon).With(u"twice.png", icon).WithLocked(u"locked.png");
    return CheckSkin(skin);
}

bool IsThis(const Fault& fault, const Planted& planted) {
    return fault.Line == planted.AtLine && fault.Column == planted.AtColumn &&
           fault.Severity == planted.Severity && fault.What.find(planted.What) != std::string::npos &&
           fault.Meant == planted.Meant && !fault.Effect.empty();
}

std::string ListOf(const std::vector<Fault>& faults) {
    std::string list;
    for (const Fault& fault : faults) list += "\n" + Format(fault);
    return list;
}

} // namespace

TEST_CASE("A skin without faults has none") {
    const std::string found = ListOf(CheckSkin(SkinWithFiles(Joined(LinesWithoutFaults()))));
    CHECK(found == "");
}

TEST_CASE("Nothing is said of what is unusual but right") {
    const char* const texts[] = {"notes\n12\nFile\nAuthor: me\n// 5: 1\nStart", "  start of it",
                                 "START // here"};
    for (const char* text : texts) {
        const std::string found = ListOf(FaultsOf({1, text, 0, 0, E, ""}));
        CAPTURE(text);
        CHECK(found == "");
    }
    CHECK(FaultsOf({5, "1: 9,0,0,9 // its right before its left", 0, 0, E, ""}).empty());
    CHECK(FaultsOf({5, " 1 : &h0, 9,+0,9//BRect", 0, 0, E, ""}).size() == 1); // the number in hexadecimal
    CHECK(FaultsOf({32, "Home: just.png // 20 x 20", 0, 0, E, ""}).empty());
    CHECK(FaultsOf({33, "", 0, 0, E, ""}).empty());
    CHECK(FaultsOf({33, "End\n// 5: 1\nwords", 0, 0, E, ""}).empty());
}

TEST_CASE("A missing section is told of at the start") {
    std::vector<std::string> lines = LinesWithoutFaults();
    lines.resize(26);
    lines[0] = "  Start";
    const auto faults = CheckSkin(SkinWithFiles(Joined(lines)));
    REQUIRE(faults.size() == 1);
    CHECK(Format(faults[0]).starts_with("SKIN.INI:1:3: warning: there is no section [Icon]\n"));
}

TEST_CASE("Rectangles have the names that the documents give them") {
    CHECK(RectName(0) == "TabRect");
    CHECK(RectName(13) == "Line2");
    CHECK(RectName(22) == "FRightLine");
    for (const int nameless : {-1, 23, 25, 26}) CHECK(RectName(nameless).empty());
}

TEST_CASE("Each planted fault is found at its line and column, and nothing else is") {
    CHECK(std::size(Definitions) >= 40);
    for (const Planted& planted : Definitions) {
        const std::vector<Fault> faults = FaultsOf(planted);
        const std::string found = ListOf(faults);
        const std::string text = planted.Text;
        CAPTURE(text);
        CAPTURE(found);
        CHECK(std::count_if(faults.begin(), faults.end(),
                            [&](auto& each) { return IsThis(each, planted); }) == 1);
        CHECK(faults.size() == 1 + planted.Others);
    }
}

TEST_CASE("An error says what the control raises and what stays") {
    const auto effect = [](int line, const char* text) {
        return FaultsOf({line, text, 0, 0, E, ""}).at(0).Effect;
    };
    CHECK(effect(9, "5: 0,1,0")
              .starts_with("The control raises error 9 (Subscript out of range); what stands before"));
    CHECK(effect(9, "5: 0,x,0,1").starts_with("The control raises error 13 (Type mismatch);"));
    CHECK(effect(3, "File: skim.bmp").starts_with("The control raises error 53 (File not found);"));
    CHECK(effect(3, "File: cut.bmp").starts_with("The control raises error 481 (Invalid picture);"));
    CHECK(effect(3, "File: four.bmp").starts_with("The control does not use the fourth byte"));
    CHECK(effect(3, "File: deep.bmp").starts_with("The control draws it in the colours that it has"));
    CHECK(effect(28, "DeleteButton: wide.png").starts_with("The control raises error 6 (Overflow)"));
    CHECK(effect(32, "Home: wide.png") == "The control leaves the icon's place empty.");
    CHECK(
        effect(31, "") ==
        "The control keeps that of an earlier skin; at first the first icon of the list is the menu button.");
}

TEST_CASE("Faults are listed in the order of their places") {
    const auto faults = FaultsOf({2, "[Tab]\n5: x\n5: 0,1\n5: 0,70,0,90,1", 0, 0, E, ""});
    CHECK(std::is_sorted(faults.begin(), faults.end(), [](const Fault& a, const Fault& b) {
        return std::pair(a.Line, a.Column) < std::pair(b.Line, b.Column);
    }));
    CHECK(faults.size() > 4);
}

#include "skin/SkinParser.h"

#include <doctest/doctest.h>

#include "tests/skin/ParsedSkin.h"

using namespace vantik;

namespace {

ParsedSkin Tab(std::u16string_view lines) {
    return ParsedSkin((u"start\r\n[Tab]\r\n" + std::u16string(lines)).append(u"\r\nEnd\r\n"));
}

ParsedSkin Icon(std::u16string_view lines) {
    return ParsedSkin((u"start\r\n[Icon]\r\n" + std::u16string(lines)).append(u"\r\nEnd\r\n"));
}

} // namespace

TEST_CASE("a rectangle line gives left, right, top, bottom in that order, and its inclusive extent") {
    const ParsedSkin skin = Tab(u"0: 0,213,0,10//TabRect");
    CHECK(skin.Error == 0);
    CHECK(skin.Rect(0) ==
          SkinRect{.Left = 0, .Top = 0, .Right = 213, .Bottom = 10, .Width = 214, .Height = 11});
}

TEST_CASE("no check that the right edge is right of the left one") {
    CHECK(Tab(u"1: 13,0,0,21     //BRect").Rect(1) == SkinRect{13, 0, 0, 21, -12, 22});
}

TEST_CASE(
    "a space before the colon stays in the key: a rectangle's number still converts, FILE is a type "
    "mismatch") {
    CHECK(Tab(u"10 : 1,2,3,4").Rect(10) == SkinRect{1, 3, 2, 4, 2, 2});
    const ParsedSkin skin = Tab(u"File : a.bmp");
    CHECK(skin.Error == 13);
    CHECK(skin.State.SkinBitmapPath.empty());
}

TEST_CASE("a rectangle line with three numbers fails, one with five stores the first four") {
    CHECK(Tab(u"2: 1,2,3").Error == 9);
    CHECK(Tab(u"2: 1,2,3,4,five").Rect(2) == SkinRect{1, 3, 2, 4, 2, 2});
    CHECK(Tab(u"2:").Error == 9);
    CHECK(Tab(u"2: 1,,3,4").Error == 13);
    CHECK(Tab(u"2: 1,x").Error == 13); // pieces are converted in turn, before the missing third one is needed
}

TEST_CASE("coordinates convert as the host language converts numbers") {
    CHECK(Tab(u"3: -1 , &hF ,2.5, 1E1").Rect(3) == SkinRect{-1, 2, 15, 10, 17, 9});
    CHECK(Tab(u"3: 1,2147483648,0,0").Error == 6);
}

TEST_CASE(
    "a rectangle number outside 0 to 25 is a subscript error, text a type mismatch, a huge number an "
    "overflow") {
    CHECK(Tab(u"25: 0,0,0,0").Error == 0);
    CHECK(Tab(u"26: 0,0,0,0").Error == 9);
    CHECK(Tab(u"-1: 0,0,0,0").Error == 9);
    CHECK(Tab(u"fill: 0,0,0,0").Error == 13);
    CHECK(Tab(u": 0,0,0,0").Error == 13);
    CHECK(Tab(u"32768: 0,0,0,0").Error == 6);
    CHECK(Tab(u"26: x").Error == 9); // the number is looked up before the coordinates are read
}

TEST_CASE("an extent that leaves 32 bits overflows") {
    CHECK(Tab(u"0: 0,2147483647,0,0").Error == 6);
    CHECK(Tab(u"0: 0,0,-2147483648,0").Error == 6);
    CHECK(Tab(u"0: 0,2147483646,0,0").Rect(0).Width == 2147483647);
}

TEST_CASE("everything stored before the failing line stays in force, the lines after it are not read") {
    const ParsedSkin skin = Tab(u"File: a.bmp\r\n4: 1,2,3,4\r\n5: x\r\n6: 1,2,3,4");
    CHECK(skin.Error == 13);
    CHECK(skin.State.SkinBitmapPath == u"C:\\host\\Skin\\\\A.BMP");
    CHECK(skin.Rect(4).Width == 2);
    CHECK(skin.Rect(5) == SkinRect{});
    CHECK(skin.Rect(6) == SkinRect{});
}

TEST_CASE("a line that fails at one number has stored those before it") {
    CHECK(Tab(u"5: 1,2,3,x").Rect(5) == SkinRect{1, 3, 2, 0, 0, 0});
    CHECK(Tab(u"5: 7,8").Rect(5) == SkinRect{7, 0, 8, 0, 0, 0});
    // All four, then the width; the height overflows.
    CHECK(Tab(u"5: 1,2,-9,2147483647").Rect(5) == SkinRect{1, -9, 2, 2147483647, 2, 0});
}

TEST_CASE("any line whose first three letters are END ends the parse, started or not") {
    CHECK(Tab(u"  eNding: 1\r\n0: 1,2,3,4").Rect(0) == SkinRect{});
    CHECK(ParsedSkin(u"Endless\r\nStart\r\n[Tab]\r\n0: 1,2,3,4").Rect(0) == SkinRect{});
}

TEST_CASE("any line whose first five letters are START starts it, and carries no content itself") {
    CHECK(ParsedSkin(u"  starting now\r\n[Tab]\r\n0: 1,2,3,4").Rect(0).Left == 1);
    CHECK(ParsedSkin(u"//Start\r\n[Tab]\r\n0: 1,2,3,4").Rect(0) == SkinRect{});
    CHECK(ParsedSkin(u"[Tab]\r\nStart: 1\r\n0: 1,2,3,4").Error == 0); // the section line came too early
    CHECK(Tab(u"Start: 1,2,3,4").Error == 13);                        // a second one is an entry like others
}

TEST_CASE("a file without START yields no entries, a file without END is read to its end") {
    CHECK(ParsedSkin(u"[Tab]\r\n0: 1,2,3,4\r\n").Rect(0) == SkinRect{});
    CHECK(ParsedSkin(u"Start\r\n[Tab]\r\n0: 1,2,3,4").Rect(0).Left == 1);
    CHECK(ParsedSkin(u"").Error == 0);
}

TEST_CASE("a section line with a comment behind its bracket opens a section that has no meaning") {
    const ParsedSkin skin = Tab(u"[Tab] //pieces\r\nx: y\r\n0: 1,2,3,4\r\n[ TAB ]\r\n1: 1,2,3,4");
    CHECK(skin.Error == 0);
    CHECK(skin.Rect(0) == SkinRect{});
    CHECK(skin.Rect(1).Left == 1);
}

TEST_CASE("the last character of a section line is removed whatever it is") {
    CHECK(Tab(u"[other]\r\n[tab!\r\n0: 1,2,3,4").Rect(0).Left == 1);
    CHECK(Tab(u"[\r\nx: y").Error == 0);
    CHECK(Tab(u"[]\r\nx: y").Error == 0);
}

TEST_CASE("entries of other sections, and those before the first section, are ignored") {
    CHECK(ParsedSkin(u"Start\r\nx: y\r\n[Sound]\r\n77: y").Error == 0);
}

TEST_CASE("comments, empty lines and lines without a colon mean nothing") {
    CHECK(Tab(u"\r\n   \r\n//x: y\r\nx y\r\nx // : y").Error == 0);
}

TEST_CASE("only spaces are stripped, so a tab makes a comment or a keyword an entry") {
    CHECK(Tab(u"\t//x: y").Error == 0); // cut at the comment: nothing is left but the tab
    CHECK(Tab(u"\t1: 1,2,3,4").Error == 13);
}

TEST_CASE("a line ends with CR LF, CR or LF") {
    for (const char16_t* text :
         {u"Start\n[Tab]\n0: 1,2,3,4\n\n1: 5,6,7,8", u"Start\r[Tab]\r0: 1,2,3,4\r\r1: 5,6,7,8",
          u"Start\r\n[Tab]\r\n0: 1,2,3,4\r\n\r\n1: 5,6,7,8\r\n"}) {
        const ParsedSkin skin(text);
        CHECK(skin.Rect(0).Left == 1);
        CHECK(skin.Rect(1).Left == 5);
    }
}

TEST_CASE("the bitmap lies in the host folder's SkinPath, whose own backslash is doubled") {
    CHECK(Tab(u"file:  Some Name.bmp //comment").State.SkinBitmapPath == u"C:\\host\\Skin\\\\SOME NAME.BMP");
}

TEST_CASE("a button's icon takes its role and the size of its picture") {
    const ParsedSkin skin =
        Icon(u"DeleteButton:a_3x4\r\nLeftButton:b_5x6\r\nRightButton: c_7x8\r\nMenuBar:d_9x1");
    CHECK(skin.State.SkinIcons.SkinIconCount() == 4);
    CHECK(skin.State.SkinIcons.DeleteButtonIcon == 0);
    CHECK(skin.State.SkinIcons.LeftButtonIcon == 1);
    CHECK(skin.State.SkinIcons.RightButtonIcon == 2);
    CHECK(skin.State.SkinIcons.MenuBarIcon == 3);
    CHECK(skin.Icon(0).Name == u"DELETEBUTTON");
    CHECK(skin.Icon(2).FilePath == u"C:\\host\\Skin\\\\C_7X8");
    CHECK(skin.Icon(2).Width == 7);
    CHECK(skin.Icon(2).Height == 8);
}

TEST_CASE("any other icon is kept by name, with size -1 and empty slots") {
    const ParsedSkin skin = Icon(u"Sun:a_3x4\r\nMenuBar :b_3x4");
    CHECK(skin.Icon(0).Name == u"SUN");
    CHECK(skin.Icon(0).Width == -1);
    CHECK(skin.Icon(0).Height == -1);
    for (const BitmapSlot slot : skin.Icon(0).Handles) CHECK(slot == NoBitmap);
    CHECK(skin.Icon(1).Name == u"MENUBAR "); // the space stays in the key, so it has no role
    CHECK(skin.Icon(1).Width == -1);
    CHECK(skin.State.LastPng.LastPngWidth == 0);
}

// No initialisation sets the menu's index, unlike those of the others.
TEST_CASE(
    "a skin without a menu line shows its first icon there, and no other button without a line of its own") {
    const ParsedSkin skin = Icon(u"Sun:a\r\nMoon:b");
    const SkinIcons& icons = skin.State.SkinIcons;
    CHECK(icons.At(icons.MenuBarIcon) == &icons.Entries[0]);
    CHECK(icons.At(icons.LeftButtonIcon) == nullptr);
    CHECK(icons.At(icons.RightButtonIcon) == nullptr);
    CHECK(icons.At(icons.DeleteButtonIcon) == nullptr);
}

TEST_CASE("a button whose picture is not there takes the size that was read last") {
    const ParsedSkin skin = Icon(u"LeftButton:a_3x4\r\nRightButton:missing");
    CHECK(skin.Icon(1).Width == 3); // reading a missing file leaves the size members as they were
    CHECK(skin.Icon(1).Height == 4);
}

TEST_CASE("parsing the same file twice doubles the icons, and the roles point at the second copies") {
    const std::u16string text =
        u"Start\r\n[Tab]\r\n0: 1,2,3,4\r\n[Icon]\r\nSun:s\r\nDeleteButton:a_3x4\r\nMenuBar:b_5x6";
    ParsedSkin skin(text);
    skin.Parse(text);
    CHECK(skin.State.SkinIcons.SkinIconCount() == 6);
    CHECK(skin.State.SkinIcons.DeleteButtonIcon == 4);
    CHECK(skin.State.SkinIcons.MenuBarIcon == 5);
    CHECK(skin.State.SkinIcons.LeftButtonIcon == -1);
    CHECK(skin.Icon(3).Name == u"SUN");
}

TEST_CASE("a parse overwrites only what its file mentions") {
    ParsedSkin skin(u"Start\n[Tab]\nFile:a\n0: 1,2,3,4\n1: 1,2,3,4");
    skin.Parse(u"Start\n[Tab]\n1: 5,6,7,8");
    CHECK(skin.Rect(0).Left == 1);
    CHECK(skin.Rect(1).Left == 5);
    CHECK(skin.State.SkinBitmapPath == u"C:\\host\\Skin\\\\A");
}

TEST_CASE("more icons than a 16-bit count holds are an overflow") {
    std::u16string text = u"Start\n[Icon]\n";
    for (int i = 0; i < 32768; ++i) text += u"a:b\n";
    const ParsedSkin skin(text);
    CHECK(skin.Error == 6);
    CHECK(skin.Text == "line 32770: there are more than 32767 icons");
    CHECK(skin.State.SkinIcons.SkinIconCount() == 32767);
}

TEST_CASE("a button's picture that cannot be measured stops the parse at its line") {
    ControlState state;
    SkinParser parser(state, SkinFolder(u"C:\\host", u"Skin"),
                      [](const std::u16string&, PngSize&) { Raise(RunTimeErrorNumber::PathFileAccess); });
    const RaisedError raised = ErrorRaisedBy([&] { parser.Parse(u"Start\n[Icon]\nMenuBar:a\nSun:b"); });
    CHECK(raised.Number == 75);
    CHECK(raised.Text == "line 3: Path/File access error");
    CHECK(state.SkinIcons.SkinIconCount() == 1);
    CHECK(state.SkinIcons.MenuBarIcon == 0);
    CHECK(state.SkinIcons.Entries[0].Width == -1);
}

TEST_CASE("an error names the line and what stands there, as it stands there") {
    CHECK(Tab(u"4: 1,2,3,4\r\n  Fill9 : 1,2,3,4").Text ==
          "line 4: \"Fill9 \" is not a number: a key of [Tab] is \"File\", without a blank before the colon, "
          "or "
          "the number of a rectangle");
    CHECK(Tab(u"40000: 1,2,3,4").Text == "line 3: \"40000\" is no number from -32768 to 32767");
    CHECK(Tab(u"26: 1,2,3,4").Text == "line 3: there is no rectangle 26, only 0 to 25");
    CHECK(Tab(u"\r\n5: 13, 1o ,0,21 // end").Text == "line 4: \" 1o \" is not a number");
    CHECK(Tab(u"5: 1,2,99999999999,4").Text ==
          "line 3: \"99999999999\" is no number from -2147483648 to 2147483647");
    CHECK(Tab(u"5: 1,2 // and?").Text ==
          "line 3: \"1,2\" is too short: left, right, top and bottom are expected");
    CHECK(Tab(u"5:").Text == "line 3: \"\" is too short: left, right, top and bottom are expected");
    CHECK(Tab(u"5: 0,2147483647,0,0").Text == "line 3: \"0,2147483647,0,0\" is too large a rectangle");
}

TEST_CASE("lines are counted as editors count them") {
    CHECK(ParsedSkin(u"\n\r\n\rstart\n[TAB]\nx:").Text.starts_with("line 6: \"x\""));
}

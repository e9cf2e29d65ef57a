// The definition of the built-in skin, number by number.
#include <doctest/doctest.h>

#include "tests/skin/ParsedSkin.h"

using namespace vantik;

namespace {

constexpr std::u16string_view Definition =
    u"Start\r\n"
    u"[Tab]\r\n"
    u"File: Skin2.bmp\r\n"
    u"//Blend Area Size\r\n"
    u"0: 0,213,0,10//TabRect\r\n"
    u"//Tab Bar Size\r\n"
    u"1: 13,0,0,21     //BRect, left, top\r\n"
    u"2: 79,79,0,21    //FillPic0\r\n"
    u"3: 120,120,0,21  //FillPic1\r\n"
    u"4: 120,120,0,21  //FillPic2\r\n"
    u"\r\n"
    u"5: 13,16,0,21    //LeftPic0 \r\n"
    u"6: 0,3,166,187   //LeftPic1\r\n"
    u"7: 0,3,166,187   //LeftPic2\r\n"
    u"\r\n"
    u"8: 206,210,166,187 //RightPic0\r\n"
    u"9: 197,200,0,21    //RightPic1\r\n"
    u"10:197,200,0,21   //RightPic2\r\n"
    u"\r\n"
    u"11: 61,61,166,187 //Line0\r\n"
    u"12: 115,115,0,21  //Line1\r\n"
    u"13: 115,115,0,21  //Line2\r\n"
    u"\r\n"
    u"//Round Size\r\n"
    u"14: 0,5,10,15     //RLeftTopPic\r\n"
    u"15: 208,213,10,15 //RRightTopPic\r\n"
    u"16: 0,5,150,155   //RLeftBottom\r\n"
    u"17: 208,213,150,155//RRightBottom\r\n"
    u"\r\n"
    u"//Frame size\r\n"
    u"18: 7,7,20,20     //FBackPic\r\n"
    u"19: 11,11,10,12     //FTopLine\r\n"
    u"20: 50,50,155,155 //FBottomLine\r\n"
    u"21: 0,0,60,60     //FLeftLine\r\n"
    u"22: 213,213,40,40 //FRightLine\r\n"
    u"[Icon]\r\n"
    u"HandNo: HandNo.png\r\n"
    u"Sun: Sun.png\r\n"
    u"Deletebutton:delete1.png  "
    u"//"
    u"\u6B64\u540D\u4E0D\u53EF\u4FEE\u6539\u3002\u5728Tab\u4E0A\u663E\u793A\u7684\u5220\u9664Tab\u7684\u6309"
    u"\u94AE\u56FE\u7247\r\n"
    u"LeftButton:bar0.png\r\n"
    u"RightButton:bar1.png\r\n"
    u"MenuBar:menubar.png\r\n"
    u"End\r\n"
    u"//never read: 99";

} // namespace

TEST_CASE("the built-in definition gives every rectangle its edges and extent") {
    constexpr SkinRect Expected[SkinRects::Count] = {
        {0, 0, 213, 10, 214, 11}, {13, 0, 0, 21, -12, 22},  {79, 0, 79, 21, 1, 22},
        {120, 0, 120, 21, 1, 22}, {120, 0, 120, 21, 1, 22}, {13, 0, 16, 21, 4, 22},
        {0, 166, 3, 187, 4, 22},  {0, 166, 3, 187, 4, 22},  {206, 166, 210, 187, 5, 22},
        {197, 0, 200, 21, 4, 22}, {197, 0, 200, 21, 4, 22}, {61, 166, 61, 187, 1, 22},
        {115, 0, 115, 21, 1, 22}, {115, 0, 115, 21, 1, 22}, {0, 10, 5, 15, 6, 6},
        {208, 10, 213, 15, 6, 6}, {0, 150, 5, 155, 6, 6},   {208, 150, 213, 155, 6, 6},
        {7, 20, 7, 20, 1, 1},     {11, 10, 11, 12, 1, 3},   {50, 155, 50, 155, 1, 1},
        {0, 60, 0, 60, 1, 1},     {213, 40, 213, 40, 1, 1}, {0, 0, 0, 0, 0, 0},
        {0, 0, 0, 0, 0, 0},       {0, 0, 0, 0, 0, 0},
    };
    const ParsedSkin skin(Definition);
    CHECK(skin.Error == 0);
    for (std::int32_t i = 0; i < SkinRects::Count; ++i) {
        CAPTURE(i);
        CHECK(skin.Rect(i) == Expected[i]);
    }
    CHECK(skin.State.SkinBitmapPath == u"C:\\host\\Skin\\\\SKIN2.BMP");
}

TEST_CASE("every piece but the bar size lies inside the bitmap of 214 x 188 pixels") {
    const ParsedSkin skin(Definition);
    for (std::int32_t i = 0; i <= FRightLine; ++i) {
        CAPTURE(i);
        const SkinRect& rect = skin.Rect(i);
        CHECK((rect.Left >= 0 && rect.Right <= 213 && rect.Top >= 0 && rect.Bottom <= 187));
        CHECK((i == BRect || (rect.Width > 0 && rect.Height > 0)));
    }
}

TEST_CASE("the built-in definition names two tab icons and the four buttons") {
    const ParsedSkin skin(Definition);
    constexpr std::u16string_view Names[] = {u"HANDNO",     u"SUN",         u"DELETEBUTTON",
                                             u"LEFTBUTTON", u"RIGHTBUTTON", u"MENUBAR"};
    constexpr std::u16string_view Files[] = {u"HANDNO.PNG", u"SUN.PNG",  u"DELETE1.PNG",
                                             u"BAR0.PNG",   u"BAR1.PNG", u"MENUBAR.PNG"};
    REQUIRE(skin.State.SkinIcons.SkinIconCount() == 6);
    for (std::int16_t i = 0; i < 6; ++i) {
        CHECK(skin.Icon(i).Name == Names[i]);
        CHECK(skin.Icon(i).FilePath == u"C:\\host\\Skin\\\\" + std::u16string(Files[i]));
    }
    CHECK(skin.State.SkinIcons.DeleteButtonIcon == 2);
    CHECK(skin.State.SkinIcons.LeftButtonIcon == 3);
    CHECK(skin.State.SkinIcons.RightButtonIcon == 4);
    CHECK(skin.State.SkinIcons.MenuBarIcon == 5);
}

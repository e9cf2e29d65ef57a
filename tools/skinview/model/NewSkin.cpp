#include "tools/skinview/model/NewSkin.h"

#include <array>

namespace vantik {

namespace {

// Three bars of 24 x 26 pixels with their separators behind them, and the page's frame below.
constexpr const char* Definition =
    "Start\r\n"
    "[Tab]\r\n"
    "File: skin.bmp\r\n"
    "\r\n"
    "//the band beside the page, and the row of bars: their heights count\r\n"
    "0: 4,27,4,29 //TabRect\r\n"
    "1: 4,27,4,29 //BRect\r\n"
    "\r\n"
    "//a bar: normal, under the pointer, active\r\n"
    "2: 16,16,4,29 //FillPic0\r\n"
    "3: 48,48,4,29 //FillPic1\r\n"
    "4: 80,80,4,29 //FillPic2\r\n"
    "5: 4,9,4,29 //LeftPic0\r\n"
    "6: 36,41,4,29 //LeftPic1\r\n"
    "7: 68,73,4,29 //LeftPic2\r\n"
    "8: 22,27,4,29 //RightPic0\r\n"
    "9: 54,59,4,29 //RightPic1\r\n"
    "10: 86,91,4,29 //RightPic2\r\n"
    "11: 30,30,4,29 //Line0\r\n"
    "12: 62,62,4,29 //Line1\r\n"
    "13: 94,94,4,29 //Line2\r\n"
    "\r\n"
    "//the page's frame\r\n"
    "14: 4,9,36,41 //RLeftTopPic\r\n"
    "15: 86,91,36,41 //RRightTopPic\r\n"
    "16: 4,9,54,59 //RLeftBottom\r\n"
    "17: 86,91,54,59 //RRightBottom\r\n"
    "18: 48,48,48,48 //FBackPic\r\n"
    "19: 48,48,36,36 //FTopLine\r\n"
    "20: 48,48,59,59 //FBottomLine\r\n"
    "21: 4,4,48,48 //FLeftLine\r\n"
    "22: 91,91,48,48 //FRightLine\r\n"
    "\r\n"
    "[Icon]\r\n"
    "DeleteButton: close.png\r\n"
    "LeftButton: back.png\r\n"
    "RightButton: forth.png\r\n"
    "MenuBar: menu.png\r\n"
    "End\r\n";

constexpr std::uint32_t Around = 0xD8DCE2, Edge = 0x6F7885, Page = 0xFAFBFC, KeyPixel = 0xFF00FF;
constexpr std::array<std::uint32_t, 3> BarColours = {0xE3E7EC, 0xCFE0F5, Page};
constexpr std::int32_t BarWidth = 24, BarHeight = 26, FirstLeft = 4, FirstTop = 4, Step = 32, FrameTop = 36;

void Fill(PixelImage& image, const PixelBox& box, std::uint32_t colour) {
    for (std::int32_t y = box.Top; y < box.Bottom; ++y)
        for (std::int32_t x = box.Left; x < box.Right; ++x) image.At(x, y) = colour;
}

// A box with an edge of one pixel around it.
void Frame(PixelImage& image, const PixelBox& box, std::uint32_t inside) {
    Fill(image, box, Edge);
    Fill(image, {box.Left + 1, box.Top + 1, box.Right - 1, box.Bottom - 1}, inside);
}

// Its upper corners are cut off by what is transparent; the active one is open towards the page.
void DrawBar(PixelImage& image, std::int32_t left, std::uint32_t colour, bool isActive) {
    const PixelBox bar = {left, FirstTop, left + BarWidth, FirstTop + BarHeight};
    Frame(image, bar, colour);
    if (isActive) Fill(image, {bar.Left + 1, bar.Bottom - 1, bar.Right - 1, bar.Bottom}, colour);
    Fill(image, {bar.Left, bar.Top, bar.Left + 1, bar.Top + 1}, KeyPixel);
    Fill(image, {bar.Right - 1, bar.Top, bar.Right, bar.Top + 1}, KeyPixel);
    Fill(image, {left + BarWidth + 2, bar.Top, left + BarWidth + 3, bar.Bottom}, Edge);
}

} // namespace

std::string NewDefinition() { return Definition; }

std::string NewSettings(bool lying) {
    const std::string common =
        "BarWidth = 110\r\nTabToTab = 2\r\nTabBorder = True\r\nCaptionPos = AlignMiddle\r\n"
        "CaptionColor0 = #3a3f49\r\nCaptionColor1 = #17181c\r\n";
    return common + (lying ? "CaptionYjust = 6\r\nIcoXjust = 2\r\n" : "CaptionYjust = 0\r\nIcoYjust = 2\r\n");
}

PixelImage NewBitmap() {
    PixelImage image(100, 64, Around);
    for (std::size_t look = 0; look < BarColours.size(); ++look)
        DrawBar(image, FirstLeft + static_cast<std::int32_t>(look) * Step, BarColours[look], look == 2);
    Frame(image, {FirstLeft, FrameTop, FirstLeft + 2 * Step + BarWidth, FrameTop + 24}, Page);
    return image;
}

} // namespace vantik

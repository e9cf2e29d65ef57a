#include "render/PngIconDrawing.h"

#include "png/LoadPNG.h"

namespace vantik {

OwnedBitmap DrawPngFile(const std::u16string& path, HDC targetDC, HBITMAP targetBitmap, std::int32_t x,
                        std::int32_t y, std::uint8_t style, std::int16_t direct, HDC picBox) {
    LoadPNG png;
    png.Direct(direct);
    png.Style(style);
    png.PicBox(picBox);
    png.SetDstXY(x, y);
    png.SetToBkgrnd(True, x, y);
    png.BackgroundHbmp(targetBitmap);
    png.BackgroundHdc(targetDC);
    png.SetAlpha(True);
    png.SetTrans(True);
    png.OpenPNG(path);
    return png.TakeBitmap();
}

} // namespace vantik

#include "png/CBitmap.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/Shortage.h"

namespace vantik {

namespace CBitmap {

namespace {

constexpr UINT RowsDepth = 32; // of a context that takes rows as they are

// One information block for each depth; "colours used" stays 0: the full table for the depth, none from 24 bits on.
template <std::size_t Colours>
struct BitmapInformation {
    BITMAPINFOHEADER Header = {};
    std::array<std::uint32_t, Colours> ColourTable = {};

    explicit BitmapInformation(const DibImage& image) noexcept {
        Header.biSize = sizeof Header;
        Header.biWidth = image.Width;
        Header.biHeight = image.IsTopDown ? -image.Height : image.Height;
        Header.biPlanes = 1;
        Header.biBitCount = static_cast<WORD>(image.BitCount);
        std::copy_n(image.ColourTable.begin(), std::min(image.ColourTable.size(), Colours),
                    ColourTable.begin());
    }
};

// As CreateDIBitmap does it, but without asking a context for the bitmap's format.
OwnedBitmap CreateFilledBitmap(const DibImage& image, HDC dc, const BITMAPINFO* information) noexcept {
    OwnedBitmap bitmap(CreateBitmap(image.Width, image.Height, 1, RowsDepth, nullptr));
    const auto height = static_cast<UINT>(image.Height);
    const bool isFilled = bitmap && SetDIBits(dc, bitmap.Get(), 0, height, image.Pixels.data(), information,
                                              DIB_RGB_COLORS) != 0;
    return isFilled ? std::move(bitmap) : OwnedBitmap();
}

OwnedBitmap CreateScreenBitmap(const DibImage& image, const BITMAPINFO* information) noexcept {
    const ScreenDC screen = GetScreenDC();
    if (!screen) return {}; // without a context the system makes a bitmap of two colours
    return OwnedBitmap(CreateDIBitmap(screen.Get(), &information->bmiHeader, CBM_INIT, image.Pixels.data(),
                                      information, DIB_RGB_COLORS));
}

// A context of the screen has some systems look up the display's settings, which takes longer than everything else about
// an icon. Keeping one for all calls is no way out: no two threads may use it at once, and it would outlive its module.
template <std::size_t Colours>
OwnedBitmap Build(const DibImage& image, HDC rowTaker) noexcept {
    const BitmapInformation<Colours> information(image);
    const auto* const format = reinterpret_cast<const BITMAPINFO*>(&information);
    OwnedBitmap bitmap =
        rowTaker ? CreateFilledBitmap(image, rowTaker, format) : CreateScreenBitmap(image, format);
    TellShortageUnless(bitmap.Get());
    return bitmap;
}

} // namespace

bool TakesRowsAsTheyAre(HDC target) noexcept {
    BITMAP surface = {};
    return GetObjectType(target) == OBJ_MEMDC && GetMapMode(target) == MM_TEXT && GetLayout(target) == 0 &&
           GetGraphicsMode(target) == GM_COMPATIBLE &&
           GetObjectW(GetCurrentObject(target, OBJ_BITMAP), sizeof surface, &surface) != 0 &&
           surface.bmBitsPixel == RowsDepth;
}

OwnedBitmap BuildDIB1(const DibImage& image, HDC rowTaker) noexcept { return Build<2>(image, rowTaker); }
OwnedBitmap BuildDIB4(const DibImage& image, HDC rowTaker) noexcept { return Build<16>(image, rowTaker); }
OwnedBitmap BuildDIB8(const DibImage& image, HDC rowTaker) noexcept { return Build<256>(image, rowTaker); }
OwnedBitmap BuildDIB24or32(const DibImage& image, HDC rowTaker) noexcept { return Build<1>(image, rowTaker); }

bool DrawRows(const DibImage& image, HDC target, std::int32_t x, std::int32_t y) noexcept {
    const BitmapInformation<256> information(image);
    const auto width = static_cast<DWORD>(image.Width);
    const auto height = static_cast<UINT>(image.Height);
    return SetDIBitsToDevice(target, x, y, width, height, 0, 0, 0, height, image.Pixels.data(),
                             reinterpret_cast<const BITMAPINFO*>(&information), DIB_RGB_COLORS) != 0;
}

} // namespace CBitmap

} // namespace vantik

#include "png/CBitmap.h"

#include <algorithm>
#include <array>
#include <utility>

#include "gfx/Handles.h"

namespace vantik {

namespace CBitmap {

namespace {

thread_local HBITMAP builtBitmap = nullptr;

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

// Bitmaps are made like the one selected here, which is like the screen. Made by a context of the screen itself, each of
// them would have the system look up the display's settings, which takes longer than everything else about an icon.
class ScreenFormat {
public:
    // Created rather than got from the desktop window: that context would end with the thread that got it.
    ScreenFormat() noexcept {
        const MemoryDC screen(CreateDCW(L"DISPLAY", nullptr, nullptr, nullptr));
        context_ = CreateCompatibleDC(screen.Get());
        SelectObject(context_, CreateCompatibleBitmap(screen.Get(), 1, 1));
    }

    HDC Context() const noexcept { return context_; }

private:
    HDC context_; // lives as long as the process
};

HDC ScreenLikeContext() noexcept {
    static const ScreenFormat screen;
    return screen.Context();
}

template <std::size_t Colours>
HBITMAP Build(const DibImage& image) noexcept {
    const BitmapInformation<Colours> information(image);
    builtBitmap = CreateDIBitmap(ScreenLikeContext(), &information.Header, CBM_INIT, image.Pixels.data(),
                                 reinterpret_cast<const BITMAPINFO*>(&information), DIB_RGB_COLORS);
    return builtBitmap;
}

// In such a memory context the rows give just what a bitmap made of them would: no scaling, mirroring or matching of
// colours is in between.
bool TakesRowsAsTheyAre(HDC target) noexcept {
    BITMAP surface = {};
    return GetObjectType(target) == OBJ_MEMDC && GetMapMode(target) == MM_TEXT && GetLayout(target) == 0 &&
           GetGraphicsMode(target) == GM_COMPATIBLE &&
           GetObjectW(GetCurrentObject(target, OBJ_BITMAP), sizeof surface, &surface) != 0 &&
           surface.bmBitsPixel == 32;
}

} // namespace

HBITMAP BuildDIB1(const DibImage& image) noexcept { return Build<2>(image); }
HBITMAP BuildDIB4(const DibImage& image) noexcept { return Build<16>(image); }
HBITMAP BuildDIB8(const DibImage& image) noexcept { return Build<256>(image); }
HBITMAP BuildDIB24or32(const DibImage& image) noexcept { return Build<1>(image); }

bool DrawRows(const DibImage& image, HDC target, std::int32_t x, std::int32_t y) noexcept {
    if (!TakesRowsAsTheyAre(target)) return false;
    const BitmapInformation<256> information(image);
    const auto width = static_cast<DWORD>(image.Width);
    const auto height = static_cast<UINT>(image.Height);
    return SetDIBitsToDevice(target, x, y, width, height, 0, 0, 0, height, image.Pixels.data(),
                             reinterpret_cast<const BITMAPINFO*>(&information), DIB_RGB_COLORS) != 0;
}

HBITMAP Handle() noexcept { return builtBitmap; }

HBITMAP TakeHandle() noexcept { return std::exchange(builtBitmap, nullptr); }

void DropHandle() noexcept {
    if (const HBITMAP untaken = TakeHandle()) DeleteObject(untaken);
}

} // namespace CBitmap

} // namespace vantik

#include "png/CBitmap.h"

#include <algorithm>
#include <utility>

namespace vantik {

namespace CBitmap {

namespace {

thread_local HBITMAP builtBitmap = nullptr;

struct BitmapInformation {
    BITMAPINFOHEADER Header = {};
    std::uint32_t Colours[256] = {};
};

// "Colours used" stays 0: the full table for the depth.
BitmapInformation Describe(const DibImage& image) noexcept {
    BitmapInformation information;
    information.Header.biSize = sizeof information.Header;
    information.Header.biWidth = image.Width;
    information.Header.biHeight = image.IsTopDown ? -image.Height : image.Height;
    information.Header.biPlanes = 1;
    information.Header.biBitCount = static_cast<WORD>(image.BitCount);
    std::copy(image.ColourTable.begin(), image.ColourTable.end(), information.Colours);
    return information;
}

// One context for the life of the process. It is created rather than got from the desktop window: that one would end
// with the thread that got it.
HDC ScreenContext() noexcept {
    static const HDC context = CreateDCW(L"DISPLAY", nullptr, nullptr, nullptr);
    return context;
}

} // namespace

HBITMAP BuildDIB(const DibImage& image) noexcept {
    const BitmapInformation information = Describe(image);
    const auto* const asInfo = reinterpret_cast<const BITMAPINFO*>(&information);
    builtBitmap = CreateDIBitmap(ScreenContext(), &information.Header, CBM_INIT, image.Pixels.data(), asInfo,
                                 DIB_RGB_COLORS);
    return builtBitmap;
}

HBITMAP Handle() noexcept { return builtBitmap; }

HBITMAP TakeHandle() noexcept { return std::exchange(builtBitmap, nullptr); }

void DropHandle() noexcept {
    if (const HBITMAP untaken = TakeHandle()) DeleteObject(untaken);
}

} // namespace CBitmap

} // namespace vantik

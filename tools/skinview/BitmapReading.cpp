#include "BitmapReading.h"

#include "platform/PictureLoading.h"
#include "skin/PictureFile.h"

namespace vantik {

namespace {

BITMAPINFO InfoOf(LONG width, LONG height) noexcept {
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height; // top row first
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    return info;
}

std::optional<PixelImage> PixelsOf(HBITMAP bitmap) {
    BITMAP description = {};
    if (!GetObjectW(bitmap, sizeof description, &description)) return std::nullopt;
    PixelImage image(description.bmWidth, description.bmHeight);
    BITMAPINFO info = InfoOf(image.Width(), image.Height());
    const HDC screen = GetDC(nullptr);
    const int rows =
        GetDIBits(screen, bitmap, 0, static_cast<UINT>(image.Height()), image.Data(), &info, DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    if (rows != image.Height()) return std::nullopt;
    for (std::int32_t y = 0; y < image.Height(); ++y)
        for (std::int32_t x = 0; x < image.Width(); ++x) image.At(x, y) &= 0xFFFFFF;
    return image;
}

} // namespace

std::optional<PixelImage> ReadPicture(std::span<const std::uint8_t> file) {
    const auto picture = IsWholePicture(file) ? PictureFrom(file) : nullptr;
    OLE_HANDLE handle = 0;
    SHORT type = PICTYPE_NONE;
    if (!picture || FAILED(picture->get_Type(&type)) || type != PICTYPE_BITMAP ||
        FAILED(picture->get_Handle(&handle)))
        return std::nullopt;
    return PixelsOf(reinterpret_cast<HBITMAP>(static_cast<ULONG_PTR>(handle)));
}

} // namespace vantik

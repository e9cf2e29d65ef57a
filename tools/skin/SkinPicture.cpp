#include "tools/skin/SkinPicture.h"

#include "host/PixelCanvas.h"
#include "platform/PictureLoading.h"
#include "skin/PictureFile.h"

namespace vantik {

namespace {

std::optional<Snapshot> PixelsOf(HBITMAP bitmap) {
    BITMAP extent = {};
    if (!GetObjectW(bitmap, sizeof extent, &extent)) return std::nullopt;
    PixelCanvas canvas(extent.bmWidth, extent.bmHeight);
    BITMAPINFO info = {};
    info.bmiHeader = {
        sizeof(BITMAPINFOHEADER), extent.bmWidth, -extent.bmHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    const int rows = GetDIBits(canvas.DC(), bitmap, 0, static_cast<UINT>(extent.bmHeight), canvas.Pixels(),
                               &info, DIB_RGB_COLORS);
    if (rows != extent.bmHeight) return std::nullopt;
    return canvas.Take();
}

} // namespace

std::optional<Snapshot> ReadPicture(std::span<const std::uint8_t> file) {
    const auto picture = IsWholePicture(file) ? PictureFrom(file) : nullptr;
    OLE_HANDLE handle = 0;
    SHORT type = PICTYPE_NONE;
    if (!picture || FAILED(picture->get_Type(&type)) || type != PICTYPE_BITMAP ||
        FAILED(picture->get_Handle(&handle)))
        return std::nullopt;
    return PixelsOf(reinterpret_cast<HBITMAP>(static_cast<std::uintptr_t>(handle)));
}

} // namespace vantik

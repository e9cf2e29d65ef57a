#include "png/DeviceBackground.h"

#include "gfx/Handles.h"

namespace vantik {

void DeviceBackground::ReadRows(std::int32_t width, std::int32_t height,
                                std::span<std::uint8_t> rows) noexcept {
    if (!dc_) return;
    const OwnedBitmap copy(CreateCompatibleBitmap(dc_, width, height));
    const MemoryDC memory(CreateCompatibleDC(dc_));
    {
        const Selection selected = Select(memory.Get(), copy.Get());
        if (!BitBlt(memory.Get(), 0, 0, width, height, dc_, x_, y_, SRCCOPY)) return;
    }
    BITMAPINFO information = {};
    information.bmiHeader.biSize = sizeof information.bmiHeader;
    information.bmiHeader.biWidth = width;
    information.bmiHeader.biHeight = height;
    information.bmiHeader.biPlanes = 1;
    information.bmiHeader.biBitCount = 24;
    GetDIBits(memory.Get(), copy.Get(), 0, static_cast<UINT>(height), rows.data(), &information,
              DIB_RGB_COLORS);
}

} // namespace vantik

#include "png/DeviceBackground.h"

#include <cstring>

#include "gfx/Handles.h"
#include "platform/Shortage.h"

namespace vantik {

// Copied straight into rows of the wanted layout: a bitmap of the device's own kind would have to be converted afterwards,
// and selecting one makes the system look up the display.
void DeviceBackground::ReadRows(std::int32_t width, std::int32_t height,
                                std::span<std::uint8_t> rows) noexcept {
    if (!dc_) return;
    BITMAPINFO information = {};
    information.bmiHeader.biSize = sizeof information.bmiHeader;
    information.bmiHeader.biWidth = width;
    information.bmiHeader.biHeight = height;
    information.bmiHeader.biPlanes = 1;
    information.bmiHeader.biBitCount = 24;
    void* copied = nullptr;
    const OwnedBitmap copy(CreateDIBSection(nullptr, &information, DIB_RGB_COLORS, &copied, nullptr, 0));
    const MemoryDC memory(CreateCompatibleDC(dc_));
    const Selection selected = Select(memory.Get(), copy.Get());
    if (!BitBlt(memory.Get(), 0, 0, width, height, dc_, x_, y_, SRCCOPY)) return TellShortage();
    GdiFlush();
    TellShortageUnless(copied);
    if (copied) std::memcpy(rows.data(), copied, rows.size());
}

} // namespace vantik

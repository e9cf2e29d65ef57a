#include "gfx/DibSurface.h"

namespace vantik {

DibSurface::DibSurface(std::int32_t width, std::int32_t height) noexcept {
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    OwnedBitmap bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    MemoryDC dc(CreateCompatibleDC(nullptr));
    if (!bitmap || !dc || !SelectObject(dc.Get(), bitmap.Get())) return;
    width_ = width;
    height_ = height;
    bits_ = static_cast<std::uint32_t*>(bits);
    bitmap_ = std::move(bitmap);
    dc_ = std::move(dc);
}

void DibSurface::Swap(DibSurface& other) noexcept {
    std::swap(width_, other.width_);
    std::swap(height_, other.height_);
    std::swap(bits_, other.bits_);
    std::swap(bitmap_, other.bitmap_);
    std::swap(dc_, other.dc_);
}

} // namespace vantik

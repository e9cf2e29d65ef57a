// A bitmap whose pixels can be read and written, selected into a device context of its own.
#pragma once

#include "host/HostError.h"
#include "host/Snapshot.h"

namespace vantik {

class PixelCanvas {
public:
    PixelCanvas(int width, int height) : width_(width), height_(height), dc_(CreateCompatibleDC(nullptr)) {
        BITMAPINFO info = {};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        bitmap_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits_, nullptr, 0);
        old_ = SelectObject(dc_, bitmap_);
    }
    ~PixelCanvas() {
        SelectObject(dc_, old_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
    }
    PixelCanvas(const PixelCanvas&) = delete;
    PixelCanvas& operator=(const PixelCanvas&) = delete;

    int Width() const noexcept { return width_; }
    int Height() const noexcept { return height_; }
    HDC DC() const noexcept { return dc_; }

    // Top row first, the highest byte without meaning; when all that was drawn is done.
    std::uint32_t* Pixels() {
        if (!bits_) throw HostError("no memory for a picture");
        GdiFlush();
        return static_cast<std::uint32_t*>(bits_);
    }

    Snapshot Take() {
        const std::uint32_t* const pixels = Pixels();
        const std::size_t count = static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_);
        Snapshot snapshot = {width_, height_, {pixels, pixels + count}};
        for (std::uint32_t& pixel : snapshot.Pixels) pixel &= 0xFFFFFF;
        return snapshot;
    }

private:
    int width_, height_;
    HDC dc_;
    void* bits_ = nullptr;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ old_ = nullptr;
};

} // namespace vantik

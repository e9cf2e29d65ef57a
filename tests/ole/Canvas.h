// A surface of known pixels, and the drawing of a control into one.
#pragma once

#include <algorithm>
#include <cstdint>

#include "host/Automation.h"

namespace vantik {

class Canvas {
public:
    Canvas(int width, int height) : width_(width), height_(height) {
        BITMAPINFO format = {};
        format.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        bitmap_ =
            CreateDIBSection(dc_, &format, DIB_RGB_COLORS, reinterpret_cast<void**>(&pixels_), nullptr, 0);
        old_ = SelectObject(dc_, bitmap_);
        Fill();
    }
    ~Canvas() {
        SelectObject(dc_, old_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    HDC DC() const noexcept { return dc_; }
    void Fill() { std::fill(pixels_, pixels_ + width_ * height_, Untouched); }
    std::uint32_t At(int x, int y) const {
        GdiFlush();
        return pixels_[y * width_ + x] & 0xFFFFFF;
    }

    static constexpr std::uint32_t Untouched = 0x123456;

private:
    int width_, height_;
    HDC dc_ = CreateCompatibleDC(nullptr);
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ old_ = nullptr;
    std::uint32_t* pixels_ = nullptr;
};

inline HRESULT Draw(IUnknown* control, HDC dc, RECTL bounds) {
    return QueryFor<IViewObject>(control)->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds,
                                                nullptr, nullptr, 0);
}

} // namespace vantik

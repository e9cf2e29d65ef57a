// A 32-bit bitmap that both GDI and plain loops reach: rows from the top, 0xRRGGBB in each pixel's low 24 bits.
#pragma once

#include <cstdint>

#include "gfx/Handles.h"

namespace vantik {

class DibSurface {
public:
    DibSurface() noexcept = default;
    // Stays empty, with a null context, when the bitmap cannot be had.
    DibSurface(std::int32_t width, std::int32_t height) noexcept;
    DibSurface(DibSurface&& other) noexcept : DibSurface() { Swap(other); }
    DibSurface& operator=(DibSurface other) noexcept {
        Swap(other);
        return *this;
    }

    explicit operator bool() const noexcept { return bits_ != nullptr; }
    HDC DC() const noexcept { return dc_.Get(); }

    // GdiFlush stands between drawing by GDI and touching a row.
    std::uint32_t* Row(std::int32_t y) noexcept { return bits_ + static_cast<std::ptrdiff_t>(y) * width_; }
    const std::uint32_t* Row(std::int32_t y) const noexcept {
        return bits_ + static_cast<std::ptrdiff_t>(y) * width_;
    }

    std::int32_t Width() const noexcept { return width_; }
    std::int32_t Height() const noexcept { return height_; }

private:
    void Swap(DibSurface& other) noexcept;

    std::int32_t width_ = 0, height_ = 0;
    std::uint32_t* bits_ = nullptr;
    OwnedBitmap bitmap_; // outlives the context that it is selected into
    MemoryDC dc_;
};

} // namespace vantik

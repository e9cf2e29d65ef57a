// A picture in memory, and its bitmap file.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/skinview/model/Piece.h"

namespace vantik {

class PixelImage {
public:
    PixelImage() = default;
    PixelImage(std::int32_t width, std::int32_t height, std::uint32_t colour = 0)
        : width_(width),
          pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), colour) {}

    std::int32_t Width() const noexcept { return width_; }
    std::int32_t Height() const noexcept {
        return width_ ? static_cast<std::int32_t>(pixels_.size() / static_cast<std::size_t>(width_)) : 0;
    }
    bool IsEmpty() const noexcept { return pixels_.empty(); }

    // 0x00RRGGBB
    std::uint32_t& At(std::int32_t x, std::int32_t y) { return pixels_.at(Offset(x, y)); }
    std::uint32_t At(std::int32_t x, std::int32_t y) const { return pixels_.at(Offset(x, y)); }
    const std::uint32_t* Data() const noexcept { return pixels_.data(); }
    std::uint32_t* Data() noexcept { return pixels_.data(); }

    PixelBox All() const noexcept { return {0, 0, Width(), Height()}; }
    void AddRows(std::int32_t count, std::uint32_t colour) {
        pixels_.resize(pixels_.size() + static_cast<std::size_t>(count) * static_cast<std::size_t>(width_),
                       colour);
    }

private:
    std::size_t Offset(std::int32_t x, std::int32_t y) const noexcept {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x);
    }

    std::int32_t width_ = 0;
    std::vector<std::uint32_t> pixels_;
};

// 24 bits a pixel, as skins have them.
std::string BitmapFileOf(const PixelImage& image);

} // namespace vantik

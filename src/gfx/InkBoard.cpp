#include "gfx/InkBoard.h"

#include <algorithm>

#include "gfx/RowDrawing.h"

namespace vantik {

namespace {

constexpr std::int64_t MostPixels = 1 << 22;

} // namespace

InkBoard::InkBoard() : dc_(CreateCompatibleDC(nullptr)), selection_(nullptr, nullptr) {
    if (!dc_) Raise(RunTimeErrorNumber::OutOfMemory);
    SetTextColor(DC(), RGB(255, 255, 255));
    SetBkMode(DC(), TRANSPARENT);
}

void InkBoard::Cover(const LayoutRect& area) {
    const BITMAPINFO format = FormatOfRows({area.Width, area.Height});
    const std::int64_t pixels = std::int64_t{area.Width} * area.Height;
    void* bits = nullptr;
    if (pixels <= MostPixels)
        bitmap_ = OwnedBitmap(CreateDIBSection(DC(), &format, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!bitmap_) Raise(RunTimeErrorNumber::OutOfMemory);
    selection_ = Select(DC(), bitmap_.Get());
    pixels_ = static_cast<std::uint32_t*>(bits);
    count_ = static_cast<std::size_t>(pixels);
    SetWindowOrgEx(DC(), area.Left, area.Top, nullptr);
}

std::vector<std::uint32_t> InkBoard::Take() {
    GdiFlush();
    std::vector<std::uint32_t> written(pixels_, pixels_ + count_);
    std::fill(pixels_, pixels_ + count_, 0);
    return written;
}

} // namespace vantik

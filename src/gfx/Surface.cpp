#include "gfx/Surface.h"

#include <algorithm>
#include <iterator>

#include "base/RunTimeError.h"
#include "platform/Shortage.h"

namespace vantik {

namespace {

// No window is larger on one side, and none has more pixels: beyond 1 GiB not every system counts right.
constexpr LONG LargestSide = 32767;
constexpr std::int64_t MostPixels = (std::int64_t{1} << 30) / 4;

// Four bytes a pixel: the colours are exact whatever the screen. Bottom row first, as old metafiles want it.
BITMAPINFO FormatOf(SIZE size) noexcept {
    BITMAPINFO format = {};
    format.bmiHeader.biSize = sizeof format.bmiHeader;
    format.bmiHeader.biWidth = size.cx;
    format.bmiHeader.biHeight = size.cy;
    format.bmiHeader.biPlanes = 1;
    format.bmiHeader.biBitCount = 32;
    format.bmiHeader.biCompression = BI_RGB;
    format.bmiHeader.biSizeImage =
        static_cast<DWORD>(size.cx) * static_cast<DWORD>(size.cy) * 4; // for metafiles
    return format;
}

HBITMAP NewBitmap(HDC dc, SIZE size, std::uint32_t*& pixels) noexcept {
    if (std::int64_t{size.cx} * size.cy > MostPixels) return nullptr;
    const BITMAPINFO format = FormatOf(size);
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(dc, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
    pixels = static_cast<std::uint32_t*>(bits);
    return bitmap;
}

// Device contexts count pixels in 27 bits and a sign. Not every system survives a target that reaches farther.
bool IsInReach(HDC dc, const RECT& area) noexcept {
    constexpr LONG Farthest = 1 << 27;
    const auto isFar = [](LONG value) { return value < -Farthest || value > Farthest; };
    const auto isNear = [&](const POINT& point) { return !isFar(point.x) && !isFar(point.y); };
    POINT corners[] = {
        {area.left, area.top}, {area.right, area.top}, {area.left, area.bottom}, {area.right, area.bottom}};
    if (!std::all_of(std::begin(corners), std::end(corners), isNear)) return false;
    LPtoDP(dc, corners, std::size(corners));
    return std::all_of(std::begin(corners), std::end(corners), isNear);
}

bool IsDisplay(HDC dc) noexcept {
    const DWORD type = GetObjectType(dc);
    return type == OBJ_MEMDC || (type == OBJ_DC && GetDeviceCaps(dc, TECHNOLOGY) == DT_RASDISPLAY);
}

} // namespace

HDC Surface::DC() {
    if (!dc_) dc_ = MemoryDC(CreateCompatibleDC(nullptr));
    if (!dc_) Raise(RunTimeErrorNumber::OutOfMemory);
    if (!bitmap_) MakeBitmap();
    return dc_.Get();
}

// Without a bitmap the device context keeps the single pixel that it was born with.
void Surface::MakeBitmap() noexcept {
    bitmap_ = OwnedBitmap(NewBitmap(dc_.Get(), size_, bits_));
    isMakeshift_ = !bitmap_;
    TellShortageUnless(bitmap_.Get());
    if (!bitmap_) size_ = {1, 1};
    if (!bitmap_) bitmap_ = OwnedBitmap(NewBitmap(dc_.Get(), size_, bits_));
    if (bitmap_) original_ = SelectObject(dc_.Get(), bitmap_.Get());
}

void Surface::DropBitmap() noexcept {
    if (bitmap_) SelectObject(dc_.Get(), original_);
    bitmap_ = {};
    bits_ = nullptr;
}

// The new bitmap is made when somebody draws.
void Surface::Resize(SIZE pixels) noexcept {
    DropBitmap();
    size_ = wanted_ = {std::clamp(pixels.cx, 1L, LargestSide), std::clamp(pixels.cy, 1L, LargestSide)};
}

// Where the bitmap could not be had before it may be had now.
void Surface::Clear() {
    if (isMakeshift_) Resize(wanted_);
    const HDC dc = DC(); // which knows the size
    const RECT all = {0, 0, size_.cx, size_.cy};
    FillRect(dc, &all, GetSysColorBrush(COLOR_BTNFACE));
}

bool Surface::CopyTo(HDC target, const RECT& bounds) {
    const HDC source = DC();
    if (!IsInReach(target, bounds)) return false;
    if (IsDisplay(target))
        Stretch(source, target, bounds);
    else
        CopyBits(target, bounds);
    return true;
}

void Surface::Stretch(HDC source, HDC target, const RECT& bounds) const noexcept {
    const int width = bounds.right - bounds.left, height = bounds.bottom - bounds.top;
    const int mode = SetStretchBltMode(target, COLORONCOLOR);
    StretchBlt(target, bounds.left, bounds.top, width, height, source, 0, 0, size_.cx, size_.cy, SRCCOPY);
    if (mode) SetStretchBltMode(target, mode);
}

void Surface::CopyPart(HDC target, const RECT& area) {
    if (!IsInReach(target, area)) return;
    TellShortageUnless(BitBlt(target, area.left, area.top, area.right - area.left, area.bottom - area.top,
                              DC(), area.left, area.top, SRCCOPY));
}

// The bottom row is the first in memory.
bool Surface::Read(const RECT& area, std::span<std::uint32_t> rows) const noexcept {
    if (!bits_) return false;
    GdiFlush();
    std::uint32_t* to = rows.data();
    for (LONG y = area.top; y < area.bottom; ++y)
        for (LONG x = area.left; x < area.right; ++x, ++to) {
            const bool isThere = x >= 0 && y >= 0 && x < size_.cx && y < size_.cy;
            *to = isThere ? bits_[std::ptrdiff_t{size_.cy - 1 - y} * size_.cx + x] & 0xFFFFFF : 0;
        }
    return true;
}

// The one way that works where pixels cannot be copied from one device context to another.
void Surface::CopyBits(HDC target, const RECT& bounds) const noexcept {
    if (!bits_) return;
    GdiFlush();
    const BITMAPINFO format = FormatOf(size_);
    StretchDIBits(target, bounds.left, bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top, 0,
                  0, size_.cx, size_.cy, bits_, &format, DIB_RGB_COLORS, SRCCOPY);
}

} // namespace vantik

#include "gfx/TurnedPart.h"

#include <algorithm>
#include <utility>

#include "gfx/RowDrawing.h"

namespace vantik {

namespace {

constexpr std::uint32_t ColourBits = 0x00FFFFFF;
constexpr std::uint32_t KeyColour = 0xFF00FF; // magenta, whichever way its bytes are read
constexpr std::uint32_t White = 0xFFFFFFFF, Black = 0;

bool IsKey(std::uint32_t pixel) noexcept { return (pixel & ColourBits) == KeyColour; }

// The part of a run of pixels that lies between 0 and `extent`.
struct Span {
    std::int32_t First, Count, Skipped;
};
Span Inside(std::int32_t first, std::int32_t count, std::int32_t extent) noexcept {
    const std::int64_t from = std::max<std::int64_t>(first, 0);
    const std::int64_t to = std::min<std::int64_t>(std::int64_t{first} + count, extent);
    if (from >= to) return {};
    const auto narrow = [](std::int64_t value) { return static_cast<std::int32_t>(value); };
    return {narrow(from), narrow(to - from), narrow(from - first)};
}

struct Area {
    Span Across, Down;

    Area(const PixelRows& rows, POINT source, SIZE size) noexcept
        : Across(Inside(source.x, size.cx, rows.Width)), Down(Inside(source.y, size.cy, rows.Height)) {}
    bool IsEmpty() const noexcept { return Across.Count < 1 || Down.Count < 1; }
};

// A row of the area, first pixel and end.
std::pair<const std::uint32_t*, const std::uint32_t*> RowOf(const PixelRows& rows, const Area& area,
                                                            std::int32_t row) noexcept {
    const std::uint32_t* first = rows.Row(area.Down.First + row) + area.Across.First;
    return {first, first + area.Across.Count};
}

// Copies are exact whatever mode the destination's owner has set.
class [[nodiscard]] ExactStretching {
public:
    explicit ExactStretching(HDC dc) noexcept : dc_(dc), mode_(SetStretchBltMode(dc, COLORONCOLOR)) {}
    ExactStretching(const ExactStretching&) = delete;
    ExactStretching& operator=(const ExactStretching&) = delete;
    ~ExactStretching() {
        if (mode_) SetStretchBltMode(dc_, mode_);
    }

private:
    HDC dc_;
    int mode_;
};

} // namespace

bool HasKey(const PixelRows& rows, POINT source, SIZE size) noexcept {
    const Area area(rows, source, size);
    if (area.IsEmpty()) return false;
    for (std::int32_t row = 0; row < area.Down.Count; ++row) {
        const auto [first, end] = RowOf(rows, area, row);
        if (std::any_of(first, end, IsKey)) return true;
    }
    return false;
}

// A quarter turn is a flip and then a transposition.
TurnedPart::TurnedPart(const PixelRows& rows, POINT source, SIZE size, Turn turn)
    : swapsAxes_(SwapsAxes(turn)) {
    const Area area(rows, source, size);
    if (area.IsEmpty()) return;
    const bool isFlipped = turn == Turn::Flipped || turn == Turn::Clockwise;
    const std::int32_t width = area.Across.Count, height = area.Down.Count;
    const std::int32_t shiftDown = isFlipped ? size.cy - area.Down.Skipped - height : area.Down.Skipped;
    size_ = swapsAxes_ ? SIZE{height, width} : SIZE{width, height};
    shift_ = swapsAxes_ ? POINT{shiftDown, area.Across.Skipped} : POINT{area.Across.Skipped, shiftDown};
    pixels_.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    for (std::int32_t row = 0; row < height; ++row) {
        auto [pixel, end] = RowOf(rows, area, isFlipped ? height - 1 - row : row);
        std::uint32_t* to = pixels_.data() + std::ptrdiff_t{row} * (swapsAxes_ ? 1 : width);
        for (; pixel != end; ++pixel, to += swapsAxes_ ? height : 1) *to = *pixel;
    }
}

bool TurnedPart::HasKey() const noexcept { return std::any_of(pixels_.begin(), pixels_.end(), IsKey); }

void TurnedPart::Draw(HDC target, POINT to, DWORD operation) const noexcept {
    if (pixels_.empty()) return;
    const LONG x = to.x + shift_.x, y = to.y + shift_.y;
    DrawRows(target, {x, y, x + size_.cx, y + size_.cy}, size_, pixels_.data(), operation);
}

// The first copy blackens what the second one paints.
void TurnedPart::DrawMasked(HDC target, POINT to) const {
    TurnedPart mask = *this, picture = *this;
    std::transform(pixels_.begin(), pixels_.end(), mask.pixels_.begin(),
                   [](std::uint32_t pixel) { return IsKey(pixel) ? White : Black; });
    std::replace_if(picture.pixels_.begin(), picture.pixels_.end(), IsKey, Black);
    mask.Draw(target, to, SRCAND);
    picture.Draw(target, to, SRCPAINT);
}

void TurnedPart::Stretch(HDC target, const RECT& place) const noexcept {
    DrawRows(target, place, size_, pixels_.data());
}

void TurnedPart::Repeat(HDC target, POINT to, std::int32_t repeats) const noexcept {
    if (pixels_.empty()) return;
    const ExactStretching exact(target);
    const LONG x = to.x + shift_.x, y = to.y + shift_.y;
    const SIZE stretched = swapsAxes_ ? SIZE{size_.cx, repeats} : SIZE{repeats, size_.cy};
    DrawRows(target, {x, y, x + stretched.cx, y + stretched.cy}, size_, pixels_.data());
}

} // namespace vantik

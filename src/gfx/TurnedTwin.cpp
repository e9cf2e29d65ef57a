#include "gfx/TurnedTwin.h"

#include <algorithm>
#include <utility>

#include "platform/Shortage.h"

namespace vantik {

namespace {

constexpr std::uint32_t ColourBits = 0x00FFFFFF;
constexpr std::uint32_t KeyColour = 0xFF00FF; // magenta, whichever way its bytes are read
constexpr std::uint32_t White = 0xFFFFFFFF, Black = 0;

bool IsKey(std::uint32_t pixel) noexcept { return (pixel & ColourBits) == KeyColour; }

DibSurface CopyOf(HDC surface, SIZE size) {
    DibSurface copy(size.cx, size.cy);
    if (copy && !BitBlt(copy.DC(), 0, 0, size.cx, size.cy, surface, 0, 0, SRCCOPY)) return {};
    GdiFlush();
    return copy;
}

void FlipRows(DibSurface& pixels) {
    for (std::int32_t top = 0, bottom = pixels.Height() - 1; top < bottom; ++top, --bottom)
        std::swap_ranges(pixels.Row(top), pixels.Row(top) + pixels.Width(), pixels.Row(bottom));
}

DibSurface WithAxesSwapped(const DibSurface& pixels) {
    DibSurface swapped(pixels.Height(), pixels.Width());
    for (std::int32_t y = 0; swapped && y < pixels.Height(); ++y)
        for (std::int32_t x = 0; x < pixels.Width(); ++x) swapped.Row(x)[y] = pixels.Row(y)[x];
    return swapped;
}

// The part of a run of pixels that lies between 0 and `extent`.
struct Span {
    std::int32_t First, Count, Skipped;
};
Span Inside(std::int32_t first, std::int32_t count, std::int32_t extent) {
    const std::int64_t from = std::max<std::int64_t>(first, 0);
    const std::int64_t to = std::min<std::int64_t>(std::int64_t{first} + count, extent);
    if (from >= to) return {};
    const auto narrow = [](std::int64_t value) { return static_cast<std::int32_t>(value); };
    return {narrow(from), narrow(to - from), narrow(from - first)};
}

DibSurface TurnedCopyOf(HDC surface, SIZE size, Turn turn) {
    DibSurface pixels = CopyOf(surface, size);
    if (!pixels) return pixels;
    // A quarter turn is a flip and then a transposition.
    if (turn == Turn::Flipped || turn == Turn::Clockwise) FlipRows(pixels);
    return SwapsAxes(turn) ? WithAxesSwapped(pixels) : std::move(pixels);
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

TurnedTwin::TurnedTwin(HDC surface, SIZE size, Turn turn)
    : size_(size), turn_(turn), pixels_(TurnedCopyOf(surface, size, turn)) {}

std::optional<TurnedTwin::Part> TurnedTwin::PartOf(POINT source, SIZE size) const {
    const Span across = Inside(source.x, size.cx, size_.cx), down = Inside(source.y, size.cy, size_.cy);
    if (!pixels_ || across.Count < 1 || down.Count < 1) return std::nullopt;

    const bool upsideDown = turn_ == Turn::Flipped || turn_ == Turn::Clockwise;
    const std::int32_t row = upsideDown ? size_.cy - down.First - down.Count : down.First;
    const std::int32_t shiftDown = upsideDown ? size.cy - down.Skipped - down.Count : down.Skipped;
    if (SwapsAxes(turn_)) return Part{row, across.First, down.Count, across.Count, shiftDown, across.Skipped};
    return Part{across.First, row, across.Count, down.Count, across.Skipped, shiftDown};
}

bool TurnedTwin::HasKey(const Part& part) const {
    for (std::int32_t y = part.Y; y < part.Y + part.Height; ++y) {
        const std::uint32_t* first = pixels_.Row(y) + part.X;
        if (std::any_of(first, first + part.Width, IsKey)) return true;
    }
    return false;
}

void TurnedTwin::Draw(HDC target, POINT source, SIZE size, POINT destination, bool masked) {
    const std::optional<Part> part = PartOf(source, size);
    if (!part) return;
    const POINT to = {destination.x + part->ShiftX, destination.y + part->ShiftY};
    if (masked && HasKey(*part)) return DrawMasked(target, *part, to);
    TellShortageUnless(
        BitBlt(target, to.x, to.y, part->Width, part->Height, pixels_.DC(), part->X, part->Y, SRCCOPY));
}

void TurnedTwin::DrawMasked(HDC target, const Part& part, POINT to) {
    MakeMask();
    if (!mask_ || !keyed_) return TellShortage();
    const auto copy = [&](HDC from, DWORD operation) {
        return BitBlt(target, to.x, to.y, part.Width, part.Height, from, part.X, part.Y, operation);
    };
    TellShortageUnless(copy(mask_.DC(), SRCAND) && copy(keyed_.DC(), SRCPAINT));
}

void TurnedTwin::MakeMask() {
    if (mask_ && keyed_) return;
    mask_ = DibSurface(pixels_.Width(), pixels_.Height());
    keyed_ = DibSurface(pixels_.Width(), pixels_.Height());
    if (!mask_ || !keyed_) return;
    for (std::int32_t y = 0; y < pixels_.Height(); ++y) {
        for (std::int32_t x = 0; x < pixels_.Width(); ++x) {
            const std::uint32_t pixel = pixels_.Row(y)[x];
            mask_.Row(y)[x] = IsKey(pixel) ? White : Black;
            keyed_.Row(y)[x] = IsKey(pixel) ? Black : pixel;
        }
    }
}

void TurnedTwin::Repeat(HDC target, POINT source, std::int32_t height, POINT destination,
                        std::int32_t repeats) {
    const std::optional<Part> part = PartOf(source, {1, height});
    if (!part) return;
    const ExactStretching exact(target);
    const POINT to = {destination.x + part->ShiftX, destination.y + part->ShiftY};
    const std::int32_t width = SwapsAxes(turn_) ? part->Width : repeats;
    const std::int32_t rows = SwapsAxes(turn_) ? repeats : part->Height;
    TellShortageUnless(StretchBlt(target, to.x, to.y, width, rows, pixels_.DC(), part->X, part->Y,
                                  part->Width, part->Height, SRCCOPY));
}

} // namespace vantik

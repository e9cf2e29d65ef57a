// Where one bar and its pieces lie. Painting and hit testing both read these functions, so what is seen is what is hit.
//
// A bar has coordinates of its own: u along the strip from the bar's leading edge, v across it from the strip's outer
// edge, as the skin is drawn for bars on top. The bottom strip is the top strip flipped, the left one is transposed,
// the right one is turned clockwise.
//
// With a negative TabToTab a bar is longer than its slot and reaches under the bars behind it, which are painted later;
// so does a piece that is longer than its bar. Nothing of a bar is painted outside the row.
#pragma once

#include <array>
#include <cstdint>

#include "model/ControlState.h"

namespace vantik {

struct BarPiece {
    SkinRect Source;
    std::int32_t U = 0, V = 0;
    std::int32_t Length = 0, Thickness = 0; // along u and across, on the bar
    bool IsFill = false; // repeated over its length; the others are copied with the key colour masked

    friend bool operator==(const BarPiece&, const BarPiece&) = default;
};

// At most fill, leading end and trailing end, in painting order. Pieces without any extent are left out.
class BarPieces {
public:
    void Add(const BarPiece& piece);
    const BarPiece* begin() const noexcept { return pieces_.data(); }
    const BarPiece* end() const noexcept { return pieces_.data() + count_; }

private:
    std::array<BarPiece, 3> pieces_{};
    std::size_t count_ = 0;
};

// The pieces of the bar of the tab `index` in the look `state`. None when TabBorder is neither True nor False.
// SubscriptOutOfRange when a piece index leaves the skin table; Overflow.
BarPieces PiecesOf(const ControlState& control, std::int16_t index, std::uint8_t state);

// Raises what painting the bar would: SubscriptOutOfRange also for a tab without a record, Overflow also for pieces too
// large to be turned to the side.
void CheckBar(const ControlState& control, std::int16_t index, std::uint8_t state);

// Whether every number is so far inside its width that CheckBar raises nothing for any visible bar. False says nothing.
bool AreBarsPlain(const ControlState& control) noexcept;

// The slot of a tab, counted from the first bar shown.
std::int32_t SlotOf(const ControlState& control, std::int16_t index);

// Whether the slot is one of the visible bars.
bool IsVisibleSlot(const ControlState& control, std::int32_t slot) noexcept;

// A slot is BarWidth long and as thick as the strip; the bar in it ends TabToTab earlier. Right and Bottom are outside.
LayoutRect SlotRect(const ControlState& control, std::int32_t slot);
LayoutRect BarRect(const ControlState& control, std::int32_t slot);

// How much longer than its slot a bar is: the gap when it is negative.
std::int32_t Overhang(const ControlState& control) noexcept;

// All that bars are painted on: the strip, and what the last bar reaches beyond it.
LayoutRect RowRect(const ControlState& control);

// From the strip's far end to the control's edge, as far as a row ever reaches beyond its strip.
LayoutRect BehindStripRect(const ControlState& control);

// Whether any part of a bar may lie on another bar's slot, in whatever look.
bool DoBarsOverlap(const ControlState& control);

// Where the bar's icon and close button stay: its slot, or the whole bar when that is longer.
LayoutRect RoomRect(const ControlState& control, std::int32_t slot);

// The part of that room which no later bar is painted over, in whatever look.
LayoutRect UncoveredRect(const ControlState& control, std::int32_t slot);

// The rectangle on the surface of a part of the bar in the slot. Empty at 0, 0 when TabPos names no side.
LayoutRect PartRect(const ControlState& control, std::int32_t slot, std::int32_t u, std::int32_t v,
                    std::int32_t length, std::int32_t thickness);

// The band of the slot that the look's fill runs along.
LayoutRect FillBand(const ControlState& control, std::int32_t slot, std::uint8_t state);

// All four bounds are inside.
bool PointInRect(float x, float y, const LayoutRect& rect) noexcept;

// Right and Bottom are outside.
bool IsPixelOf(const LayoutRect& rect, std::int32_t x, std::int32_t y) noexcept;

// The slot under a point that is given relative to the strip. DivisionByZero for a BarWidth of 0; Overflow.
std::int32_t BarSlotAt(float x, float y, const ControlState& control);

} // namespace vantik

// What can be done to a row before its filter is undone: no filter mixes the bytes of different channels, nor the high
// bytes of samples with the low ones. So the unfiltered row already is a bitmap's row.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vantik {

struct Rearrangement {
    bool SwapsRedBlue = false;   // of pixels of 3 or 4 samples
    bool KeepsHighBytes = false; // of samples of 16 bits, whose low bytes are dropped

    bool IsNone() const noexcept { return !SwapsRedBlue && !KeepsHighBytes; }
    // How many bytes become one.
    std::size_t Shrinks() const noexcept { return KeepsHighBytes ? 2 : 1; }
};

// `size` and `bytesPerPixel` are those of the row that is written. Both rows are touched up to RowSlack bytes behind
// their end.
void Rearrange(Rearrangement how, const std::uint8_t* from, std::uint8_t* to, std::size_t size,
               std::size_t bytesPerPixel) noexcept;

} // namespace vantik

#pragma once

#include <cstdint>

namespace vantik {

// Where a pixel (i, j) of a W x H rectangle goes.
enum class Turn : std::uint8_t {
    Plain,      // (i, j)
    Transposed, // (j, i): mirrored across the main diagonal
    Clockwise,  // (H - 1 - j, i): a quarter turn
    Flipped,    // (i, H - 1 - j): mirrored top to bottom
};

constexpr bool SwapsAxes(Turn turn) noexcept { return turn == Turn::Transposed || turn == Turn::Clockwise; }

} // namespace vantik

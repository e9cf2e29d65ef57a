// The rectangles that a definition gives.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "check/DefinitionText.h"

namespace vantik {

enum Edge : std::size_t { LeftEdge, RightEdge, TopEdge, BottomEdge }; // in the order of the numbers
using EdgeNumbers = std::array<std::int32_t, 4>;

// Pixels; Right and Bottom lie behind the last one.
struct PixelBox {
    std::int32_t Left = 0, Top = 0, Right = 0, Bottom = 0;

    std::int32_t Width() const noexcept { return Right - Left; }
    std::int32_t Height() const noexcept { return Bottom - Top; }
    bool Contains(std::int32_t x, std::int32_t y) const noexcept {
        return x >= Left && x < Right && y >= Top && y < Bottom;
    }
    friend bool operator==(const PixelBox&, const PixelBox&) = default;
};

struct Piece {
    std::int32_t Index = 0;
    EdgeNumbers Numbers{}; // as written, so right may stand before left
    int Line = 0;

    // What lies between the edges, whichever comes first.
    PixelBox Box() const noexcept;
};

// Numbers beyond any bitmap would leave no room for arithmetic.
inline constexpr std::int32_t FarthestPixel = 1'000'000;

// In the order of their numbers. What the control would not read, or lies farther away than any pixel, is left out.
std::vector<Piece> PiecesOf(const DefinitionText& text);

// Null when there is none.
const Piece* FindPiece(const std::vector<Piece>& pieces, std::int32_t index) noexcept;

// The definition with these numbers, written where the old ones stand.
std::string WithNumbers(const DefinitionText& text, std::int32_t index, const EdgeNumbers& numbers);

} // namespace vantik

// What a press on the enlarged bitmap takes hold of, and where a drag takes it.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "tools/skinview/model/Piece.h"
#include "tools/skinview/model/ZoomView.h"

namespace vantik {

inline constexpr std::int32_t NoPiece = -1;

struct Grip {
    std::int32_t Piece = NoPiece;
    std::array<bool, 4> Holds{}; // by Edge; all of them: the whole rectangle moves

    static Grip Whole(std::int32_t piece) { return {piece, {true, true, true, true}}; }
    bool IsWhole() const noexcept { return Holds == std::array<bool, 4>{true, true, true, true}; }
    friend bool operator==(const Grip&, const Grip&) = default;
};

// The piece seen at a point: of those that lie one upon the other the smallest, the chosen one before its equals.
std::int32_t PieceAt(const std::vector<Piece>& pieces, std::int32_t chosen, ViewPoint point,
                     const ZoomView& view) noexcept;

// An edge of the chosen piece from a few points off on either side; otherwise the piece seen there, by an edge or whole;
// where none is, an edge of one beside it.
std::optional<Grip> GripAt(const std::vector<Piece>& pieces, std::int32_t chosen, ViewPoint point,
                           const ZoomView& view) noexcept;

// Inside the bitmap, and no edge over the one that faces it unless it stood there before.
EdgeNumbers Dragged(const EdgeNumbers& numbers, const Grip& grip, std::int32_t right, std::int32_t down,
                    ViewSize bitmap) noexcept;

} // namespace vantik

// Where pointer and keys take a child on its page. All places are pixels of the control's window.
#pragma once

#include <array>
#include <optional>

#include "host/Box.h"

namespace vantik {

struct Spot {
    int X = 0, Y = 0;
};

// Of a chosen child, clockwise.
enum class Handle { TopLeft, Top, TopRight, Right, BottomRight, Bottom, BottomLeft, Left };
inline constexpr std::size_t HandleCount = 8;

// The handles straddle the child's edges.
std::array<Box, HandleCount> HandlesOf(const Box& child, int size) noexcept;
std::optional<Handle> HandleAt(const Box& child, int size, Spot spot) noexcept;

// Children stay in the room, by edges that meet the grid; a grid of 1 is none.
struct PageRules {
    Box Room;
    int Grid = 1;
    int Least = 1; // as wide and as high a child is at least
};

Box Moved(const Box& child, int right, int down, const PageRules& page) noexcept;
Box Resized(const Box& child, Handle handle, int right, int down, const PageRules& page) noexcept;

// Between two corners; nothing where they are so near that a press alone was meant.
std::optional<Box> Drawn(Spot from, Spot to, const PageRules& page) noexcept;
// Of its usual size, for a press alone.
Box Dropped(Spot at, int width, int height, const PageRules& page) noexcept;

} // namespace vantik

#include "tools/skinview/model/Grip.h"

#include <algorithm>
#include <cstdlib>

namespace vantik {

namespace {

constexpr std::int32_t Reach = 5; // how far from an edge it is still held

bool IsNear(std::int32_t position, std::int32_t edge, std::int32_t size, bool isInside) noexcept {
    const std::int32_t reach = isInside ? std::min(Reach, size / 3) : Reach;
    return std::abs(position - edge) <= reach;
}

struct Held {
    bool Low = false, High = false;
};

// Of two edges that are both near, the nearer one.
Held HeldAlong(std::int32_t position, std::int32_t low, std::int32_t high) noexcept {
    Held held = {IsNear(position, low, high - low, position >= low),
                 IsNear(position, high, high - low, position < high)};
    if (held.Low && held.High) (position - low < high - position ? held.High : held.Low) = false;
    return held;
}

bool ReachesOver(std::int32_t position, std::int32_t low, std::int32_t high) noexcept {
    return position >= low - Reach && position <= high + Reach;
}

// Numbers that stand the wrong way round keep their edges: the left one is drawn on the right then.
std::optional<Grip> EdgeGrip(const Piece& piece, ViewPoint point, const ZoomView& view) noexcept {
    const PixelBox box = view.ToView(piece.Box());
    if (!ReachesOver(point.X, box.Left, box.Right) || !ReachesOver(point.Y, box.Top, box.Bottom))
        return std::nullopt;
    Held along = HeldAlong(point.X, box.Left, box.Right), across = HeldAlong(point.Y, box.Top, box.Bottom);
    if (!along.Low && !along.High && !across.Low && !across.High) return std::nullopt;
    if (piece.Numbers[LeftEdge] > piece.Numbers[RightEdge]) std::swap(along.Low, along.High);
    if (piece.Numbers[TopEdge] > piece.Numbers[BottomEdge]) std::swap(across.Low, across.High);
    return Grip{piece.Index, {along.Low, along.High, across.Low, across.High}};
}

// An edge from outside, where nothing else is.
std::optional<Grip> NearbyGrip(const std::vector<Piece>& pieces, ViewPoint point,
                               const ZoomView& view) noexcept {
    for (const Piece& piece : pieces)
        if (const auto grip = EdgeGrip(piece, point, view)) return grip;
    return std::nullopt;
}

// How far both edges of one direction may go, so that neither leaves the bitmap.
void MoveBoth(std::int32_t& low, std::int32_t& high, std::int32_t by, std::int32_t extent) noexcept {
    const auto [first, last] = std::minmax(low, high);
    const std::int32_t backward = std::min(-first, 0), forward = std::max(extent - 1 - last, 0);
    const std::int32_t step = std::clamp(by, backward, forward);
    low += step;
    high += step;
}

void MoveOne(std::int32_t& edge, std::int32_t by, std::int32_t least, std::int32_t most) noexcept {
    if (by != 0) edge = std::clamp(edge + by, std::min(least, most), std::max(least, most));
}

void MoveAlong(std::int32_t& low, std::int32_t& high, Held held, std::int32_t by,
               std::int32_t extent) noexcept {
    if (held.Low && held.High) return MoveBoth(low, high, by, extent);
    const bool inOrder = low <= high;
    if (held.Low) MoveOne(low, by, 0, inOrder ? high : extent - 1);
    if (held.High) MoveOne(high, by, inOrder ? low : 0, extent - 1);
}

} // namespace

std::int32_t PieceAt(const std::vector<Piece>& pieces, std::int32_t chosen, ViewPoint point,
                     const ZoomView& view) noexcept {
    const ViewPoint pixel = view.ToPixel(point);
    const Piece* best = nullptr;
    const auto area = [](const Piece& piece) {
        return std::int64_t{piece.Box().Width()} * piece.Box().Height();
    };
    for (const Piece& piece : pieces) {
        if (!piece.Box().Contains(pixel.X, pixel.Y)) continue;
        if (!best || area(piece) < area(*best) || (area(piece) == area(*best) && piece.Index == chosen))
            best = &piece;
    }
    return best ? best->Index : NoPiece;
}

std::optional<Grip> GripAt(const std::vector<Piece>& pieces, std::int32_t chosen, ViewPoint point,
                           const ZoomView& view) noexcept {
    if (const Piece* piece = FindPiece(pieces, chosen))
        if (const auto grip = EdgeGrip(*piece, point, view)) return grip;
    const Piece* seen = FindPiece(pieces, PieceAt(pieces, chosen, point, view));
    if (!seen) return NearbyGrip(pieces, point, view);
    const auto edge = EdgeGrip(*seen, point, view);
    return edge ? *edge : Grip::Whole(seen->Index);
}

EdgeNumbers Dragged(const EdgeNumbers& numbers, const Grip& grip, std::int32_t right, std::int32_t down,
                    ViewSize bitmap) noexcept {
    EdgeNumbers moved = numbers;
    MoveAlong(moved[LeftEdge], moved[RightEdge], {grip.Holds[LeftEdge], grip.Holds[RightEdge]}, right,
              bitmap.Width);
    MoveAlong(moved[TopEdge], moved[BottomEdge], {grip.Holds[TopEdge], grip.Holds[BottomEdge]}, down,
              bitmap.Height);
    return moved;
}

} // namespace vantik

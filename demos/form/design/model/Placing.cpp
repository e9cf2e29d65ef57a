#include "demos/form/design/model/Placing.h"

#include <algorithm>

namespace vantik {

namespace {

int FloorTo(int position, int grid) noexcept {
    const int rest = position % grid;
    return position - (rest < 0 ? rest + grid : rest);
}

int Snapped(int position, int grid) noexcept { return FloorTo(position + grid / 2, grid); }

// What does not move stays, also beside the grid.
int Shifted(int position, int by, int grid) noexcept {
    return by == 0 ? position : Snapped(position + by, grid);
}

// Something that does not fit begins where the room does.
int Within(int position, int length, int begin, int end) noexcept {
    return std::max(begin, std::min(position, end - length));
}

struct Edges {
    int Low, High;
};

Edges Stretched(Edges edges, bool low, bool high, int by, Edges room, const PageRules& page) noexcept {
    if (low)
        edges.Low = std::max(room.Low, std::min(Shifted(edges.Low, by, page.Grid), edges.High - page.Least));
    if (high)
        edges.High =
            std::min(room.High, std::max(Shifted(edges.High, by, page.Grid), edges.Low + page.Least));
    return edges;
}

bool IsLeft(Handle handle) noexcept {
    return handle == Handle::TopLeft || handle == Handle::Left || handle == Handle::BottomLeft;
}
bool IsRight(Handle handle) noexcept {
    return handle == Handle::TopRight || handle == Handle::Right || handle == Handle::BottomRight;
}
bool IsTop(Handle handle) noexcept {
    return handle == Handle::TopLeft || handle == Handle::Top || handle == Handle::TopRight;
}
bool IsBottom(Handle handle) noexcept {
    return handle == Handle::BottomLeft || handle == Handle::Bottom || handle == Handle::BottomRight;
}

Edges Across(int from, int to, int grid, Edges room) noexcept {
    const int begin = Snapped(from, grid), end = Snapped(to, grid);
    return {std::clamp(std::min(begin, end), room.Low, room.High),
            std::clamp(std::max(begin, end), room.Low, room.High)};
}

Edges Horizontal(const Box& box) noexcept { return {box.Left, box.Right()}; }
Edges Vertical(const Box& box) noexcept { return {box.Top, box.Bottom()}; }

Box Between(Edges across, Edges down) noexcept {
    return {across.Low, down.Low, across.High - across.Low, down.High - down.Low};
}

} // namespace

std::array<Box, HandleCount> HandlesOf(const Box& child, int size) noexcept {
    const int left = child.Left - size / 2, middle = child.Left + (child.Width - size) / 2,
              right = child.Right() - size + size / 2;
    const int top = child.Top - size / 2, centre = child.Top + (child.Height - size) / 2,
              bottom = child.Bottom() - size + size / 2;
    const auto at = [size](int x, int y) { return Box{x, y, size, size}; };
    return {at(left, top),     at(middle, top),    at(right, top),   at(right, centre),
            at(right, bottom), at(middle, bottom), at(left, bottom), at(left, centre)};
}

std::optional<Handle> HandleAt(const Box& child, int size, Spot spot) noexcept {
    const auto handles = HandlesOf(child, size);
    const auto found =
        std::ranges::find_if(handles, [&](const Box& handle) { return handle.Contains(spot.X, spot.Y); });
    if (found == handles.end()) return std::nullopt;
    return static_cast<Handle>(found - handles.begin());
}

Box Moved(const Box& child, int right, int down, const PageRules& page) noexcept {
    Box moved = child;
    moved.Left =
        Within(Shifted(child.Left, right, page.Grid), child.Width, page.Room.Left, page.Room.Right());
    moved.Top = Within(Shifted(child.Top, down, page.Grid), child.Height, page.Room.Top, page.Room.Bottom());
    return moved;
}

Box Resized(const Box& child, Handle handle, int right, int down, const PageRules& page) noexcept {
    return Between(
        Stretched(Horizontal(child), IsLeft(handle), IsRight(handle), right, Horizontal(page.Room), page),
        Stretched(Vertical(child), IsTop(handle), IsBottom(handle), down, Vertical(page.Room), page));
}

std::optional<Box> Drawn(Spot from, Spot to, const PageRules& page) noexcept {
    const Box box = Between(Across(from.X, to.X, page.Grid, Horizontal(page.Room)),
                            Across(from.Y, to.Y, page.Grid, Vertical(page.Room)));
    if (box.Width < page.Least || box.Height < page.Least) return std::nullopt;
    return box;
}

Box Dropped(Spot at, int width, int height, const PageRules& page) noexcept {
    return {Within(Snapped(at.X, page.Grid), width, page.Room.Left, page.Room.Right()),
            Within(Snapped(at.Y, page.Grid), height, page.Room.Top, page.Room.Bottom()), width, height};
}

} // namespace vantik

// A place in whole numbers, of whatever unit its user says.
#pragma once

namespace vantik {

struct Box {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;

    constexpr int Right() const noexcept { return Left + Width; }
    constexpr int Bottom() const noexcept { return Top + Height; }
    constexpr bool Contains(int x, int y) const noexcept {
        return x >= Left && x < Right() && y >= Top && y < Bottom();
    }
    friend constexpr bool operator==(const Box&, const Box&) = default;
};

} // namespace vantik

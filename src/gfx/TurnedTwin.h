// A copy of a whole surface, turned, from which parts are drawn with or without the key colour.
#pragma once

#include <cstdint>
#include <optional>

#include "gfx/DibSurface.h"
#include "gfx/Turn.h"

namespace vantik {

class TurnedTwin {
public:
    // Copies the surface's pixels as they are now.
    TurnedTwin(HDC surface, SIZE size, Turn turn);
    explicit operator bool() const noexcept { return static_cast<bool>(pixels_); } // false: not to be had

    // A rectangle of the surface, turned, to `destination`; what lies outside the surface is left out. Masked: pixels
    // of the key colour leave the destination unchanged.
    void Draw(HDC target, POINT source, SIZE size, POINT destination, bool masked);

    // A column of the surface, turned: side by side `repeats` times.
    void Repeat(HDC target, POINT source, std::int32_t height, POINT destination, std::int32_t repeats);

private:
    // A rectangle in the twin, and how far from the destination its first pixel goes.
    struct Part {
        std::int32_t X, Y, Width, Height;
        std::int32_t ShiftX, ShiftY;
    };
    std::optional<Part> PartOf(POINT source, SIZE size) const;
    bool HasKey(const Part& part) const;
    void DrawMasked(HDC target, const Part& part, POINT to);
    void MakeMask();

    SIZE size_; // of the surface
    Turn turn_;
    DibSurface pixels_;
    // Made for the first part with a key pixel: where the key colour is, the mask is white and `keyed_` black;
    // elsewhere the mask is black and `keyed_` the picture.
    DibSurface mask_, keyed_;
};

} // namespace vantik

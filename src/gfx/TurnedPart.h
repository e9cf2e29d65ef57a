// A rectangle of a surface's pixels, turned, and drawn with or without the key colour.
#pragma once

#include <cstdint>
#include <vector>

#include "gfx/PixelRows.h"
#include "gfx/Turn.h"
#include "platform/mDeclares.h"

namespace vantik {

class TurnedPart {
public:
    // What of the rectangle lies outside the rows is left out.
    TurnedPart(const PixelRows& rows, POINT source, SIZE size, Turn turn);

    bool HasKey() const noexcept;

    // The rectangle's place is at `to`.
    void Draw(HDC target, POINT to) const noexcept { Draw(target, to, SRCCOPY); }
    void DrawMasked(HDC target, POINT to) const; // pixels of the key colour leave the target unchanged

    // Of an unturned rectangle that lies in the rows: as GDI stretches pictures.
    void Stretch(HDC target, const RECT& place) const noexcept;

    // Of a column: side by side `repeats` times.
    void Repeat(HDC target, POINT to, std::int32_t repeats) const noexcept;

private:
    void Draw(HDC target, POINT to, DWORD operation) const noexcept;

    SIZE size_ = {0, 0};
    POINT shift_ = {0, 0}; // how far from the rectangle's place the first pixel goes
    bool swapsAxes_;
    std::vector<std::uint32_t> pixels_; // rows from the top
};

// Whether the part of the rectangle that lies in the rows has a pixel of the key colour.
bool HasKey(const PixelRows& rows, POINT source, SIZE size) noexcept;

} // namespace vantik

// The picture of the control, kept between repaints: what a window, a printer or a document shows is copied from here.
#pragma once

#include <cstdint>
#include <span>

#include "gfx/Handles.h"

namespace vantik {

class Surface {
public:
    Surface() noexcept = default;
    ~Surface() { DropBitmap(); }
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;

    // The same device context for the surface's whole life. OutOfMemory when there is none to be had.
    HDC DC();

    // The content is lost; it is painted anew. A size that no bitmap can have leaves one that shows nothing.
    void Resize(SIZE pixels) noexcept;

    // Fills all of it with the colour of a window's face.
    void Clear();

    // Copies to the rectangle, stretched where its size is another one. The device context may belong to a metafile or
    // to a printer. False where the rectangle reaches farther than a device context can count.
    bool CopyTo(HDC target, const RECT& bounds);

    // Copies an area to the same place of a display of the same size.
    void CopyPart(HDC target, const RECT& area);

    // The pixels of an area, 0xRRGGBB, rows from the top; 0 where there are none. False without a bitmap.
    bool Read(const RECT& area, std::span<std::uint32_t> rows) const noexcept;

private:
    void MakeBitmap() noexcept;
    void DropBitmap() noexcept;
    void Stretch(HDC source, HDC target, const RECT& bounds) const noexcept;
    void CopyBits(HDC target, const RECT& bounds) const noexcept;

    MemoryDC dc_;
    OwnedBitmap bitmap_;
    HGDIOBJ original_ = nullptr; // what the device context was born with
    std::uint32_t* bits_ = nullptr;
    SIZE size_ = {1, 1}, wanted_ = {1, 1};
    bool isMakeshift_ = false; // smaller than it should be
};

} // namespace vantik

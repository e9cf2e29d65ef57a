// An off-screen surface that copies parts of itself onto other device contexts: plainly, stretched, with a transparent
// key colour, turned and mirrored.
//
// The turned and mirrored operations are defined pixel by pixel, and so is the transparent copy; here each is one or
// two copies of a turned, masked part of what the surface shows. That is read the first time it is needed, and afresh once
// somebody else may have drawn on the surface, that is, for every operation after `hdc` was read.
#pragma once

#include <cstdint>
#include <memory>

#include "gfx/Handles.h"
#include "gfx/PixelRows.h"
#include "gfx/Turn.h"
#include "platform/ComPtr.h"

namespace vantik {

class pcMemDC {
public:
    pcMemDC() noexcept;
    ~pcMemDC();
    pcMemDC(const pcMemDC&) = delete;
    pcMemDC& operator=(const pcMemDC&) = delete;

    // Assigning a larger extent re-creates the surface, whose old content is gone; any other value is ignored. A surface
    // that cannot be had leaves the object without one: context null, extents 0.
    std::int32_t width() const noexcept { return Width; }
    void width(std::int32_t value);
    std::int32_t height() const noexcept { return Height; }
    void height(std::int32_t value);

    HDC hdc() noexcept; // null when there is no surface

    // Destination before source; stretches the source rectangle to the destination size.
    void StretchDraw(HDC target, std::int32_t xDst = 0, std::int32_t yDst = 0, std::int32_t widthDst = 0,
                     std::int32_t heightDst = 0, std::int32_t xSrc = 0, std::int32_t ySrc = 0,
                     std::int32_t widthSrc = 0, std::int32_t heightSrc = 0);

    // These take the one source column at xSrc and repeat it, turned: Stretch90Draw as a row, top of the column at the
    // left, over heightDst rows, above an ordinary StretchDraw; Stretch270Draw likewise with the top at the right and
    // nothing underneath; Stretch180Draw upside down over widthDst columns.
    void Stretch90Draw(HDC target, std::int32_t xDst = 0, std::int32_t yDst = 0, std::int32_t widthDst = 0,
                       std::int32_t heightDst = 0, std::int32_t xSrc = 0, std::int32_t ySrc = 0,
                       std::int32_t widthSrc = 0, std::int32_t heightSrc = 0);
    void Stretch270Draw(HDC target, std::int32_t xDst = 0, std::int32_t yDst = 0, std::int32_t widthDst = 0,
                        std::int32_t heightDst = 0, std::int32_t xSrc = 0, std::int32_t ySrc = 0,
                        std::int32_t widthSrc = 0, std::int32_t heightSrc = 0);
    void Stretch180Draw(HDC target, std::int32_t xDst = 0, std::int32_t yDst = 0, std::int32_t widthDst = 0,
                        std::int32_t heightDst = 0, std::int32_t xSrc = 0, std::int32_t ySrc = 0,
                        std::int32_t widthSrc = 0, std::int32_t heightSrc = 0);

    // Source before destination; with useMask, pixels of the key colour 0xFF00FF leave the destination unchanged.
    void Draw(HDC target, std::int32_t xSrc = 0, std::int32_t ySrc = 0, std::int32_t widthSrc = 0,
              std::int32_t heightSrc = 0, std::int32_t xDst = 0, std::int32_t yDst = 0, bool useMask = false);

    // The same, turned: transposed, a quarter turn clockwise, flipped top to bottom.
    void Plg90Draw(HDC target, std::int32_t xSrc = 0, std::int32_t ySrc = 0, std::int32_t widthSrc = 0,
                   std::int32_t heightSrc = 0, std::int32_t xDst = 0, std::int32_t yDst = 0,
                   bool useMask = false);
    void Plg270Draw(HDC target, std::int32_t xSrc = 0, std::int32_t ySrc = 0, std::int32_t widthSrc = 0,
                    std::int32_t heightSrc = 0, std::int32_t xDst = 0, std::int32_t yDst = 0,
                    bool useMask = false);
    void Plg180Draw(HDC target, std::int32_t xSrc = 0, std::int32_t ySrc = 0, std::int32_t widthSrc = 0,
                    std::int32_t heightSrc = 0, std::int32_t xDst = 0, std::int32_t yDst = 0,
                    bool useMask = false);

    // Grows to the size of the picture's bitmap and copies it to (0, 0). An object without a bitmap changes nothing. False
    // where there are no resources for it.
    bool CreateFromPicture(IPictureDisp* picture);

    // The same from what another surface got of a picture. The rows are borrowed until somebody may draw on the surface.
    bool CreateFromRows(std::shared_ptr<const PixelRows> rows);

    // What a surface of just this size shows, exactly; else null, also where there are no resources for it.
    std::shared_ptr<const PixelRows> RowsOfAll(SIZE size) noexcept;

private:
    void CreateSurface(std::int32_t newWidth, std::int32_t newHeight);
    void DestroySurface() noexcept;
    void PlgDraw(Turn turn, HDC target, POINT source, SIZE size, POINT destination, bool useMask);
    void RepeatColumn(Turn turn, HDC target, POINT source, std::int32_t height, POINT destination,
                      std::int32_t repeats);
    void CreateSection(std::int32_t newWidth, std::int32_t newHeight);
    void Own(HDC dc, HBITMAP bitmap, SIZE size);
    using Creation = void (pcMemDC::*)(std::int32_t, std::int32_t);
    bool Grow(SIZE size, Creation create);
    void Borrow(std::shared_ptr<const PixelRows> rows) noexcept;
    bool CopyRows(const PixelRows& rows) noexcept;
    void Make() noexcept;
    const PixelRows* BorrowedPart(POINT source,
                                  SIZE size) const noexcept; // null when it has to be the surface's
    const PixelRows* Rows();

    HDC MemDC = nullptr; // null without a surface, and while the rows are borrowed
    HBITMAP MemBitmap = nullptr;
    HGDIOBJ OldBitmap = nullptr;
    std::int32_t Width = 0;
    std::int32_t Height = 0;
    std::shared_ptr<const PixelRows> rows_; // what the surface shows; null while that is not known
    bool drawnByOthers_ = false;
};

// The size in pixels of the picture's bitmap; 0 x 0 for null and for a picture that has none.
SIZE BitmapSizeOf(IPictureDisp* picture) noexcept;

} // namespace vantik

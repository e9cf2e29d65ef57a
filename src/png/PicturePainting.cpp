#include "png/PicturePainting.h"

#include "platform/Shortage.h"
#include "png/CBitmap.h"

namespace vantik {

namespace {

OwnedBitmap BuildBitmap(const DibImage& image, HDC rowTaker) noexcept {
    switch (image.BitCount) {
    case 1: return CBitmap::BuildDIB1(image, rowTaker);
    case 4: return CBitmap::BuildDIB4(image, rowTaker);
    case 8: return CBitmap::BuildDIB8(image, rowTaker);
    default: return CBitmap::BuildDIB24or32(image, rowTaker);
    }
}

void BlitToPicBox(const DibImage& image, HBITMAP bitmap, const PicturePlace& place) noexcept {
    const MemoryDC memory(CreateCompatibleDC(place.PicBox));
    const Selection selected = Select(memory.Get(), bitmap);
    TellShortageUnless(
        BitBlt(place.PicBox, place.X, place.Y, image.Width, image.Height, memory.Get(), 0, 0, SRCCOPY));
}

OwnedBitmap PaintOpaque(const DibImage& image, const PicturePlace& place) noexcept {
    const bool takesRows = CBitmap::TakesRowsAsTheyAre(place.PicBox);
    OwnedBitmap bitmap = BuildBitmap(image, takesRows ? place.PicBox : nullptr);
    const bool isPainted = !bitmap || (takesRows && CBitmap::DrawRows(image, place.PicBox, place.X, place.Y));
    if (!isPainted) BlitToPicBox(image, bitmap.Get(), place);
    return bitmap;
}

} // namespace

OwnedBitmap PaintPicture(std::shared_ptr<const DibImage> image, BackgroundSource& background,
                         const PicturePlace& place) {
    if (!image->IsTransparent) return PaintOpaque(*image, place);
    const DibImage mixed = Composite(*image, place.Style, &background);
    image.reset();
    return PaintOpaque(mixed, place);
}

} // namespace vantik

#include "png/LoadPNG.h"

#include "base/RunTimeError.h"
#include "platform/Shortage.h"
#include "png/CBitmap.h"
#include "png/Composite.h"
#include "png/DeviceBackground.h"
#include "png/OutOfMemory.h"

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

} // namespace

void LoadPNG::SetOwnBkgndColor(Boolean OwnBkgndOn, std::int32_t BackColor) noexcept {
    ownBackgroundOn_ = OwnBkgndOn;
    ownBackgroundColour_ = BackColor;
}

void LoadPNG::SetToBkgrnd(Boolean SetToBG, std::int32_t X, std::int32_t Y) noexcept {
    usesBackground_ = SetToBG;
    backgroundX_ = X;
    backgroundY_ = Y;
}

void LoadPNG::SetDstXY(std::int32_t X, std::int32_t Y) noexcept {
    destinationX_ = X;
    destinationY_ = Y;
}

std::int32_t LoadPNG::OpenPNG(const std::u16string& filename) {
    FileSource file = WithOutOfMemory([&] { return FileSource(filename); });
    Open(file);
    return 0;
}

std::int32_t LoadPNG::OpenPNGfromRes(std::uintptr_t lData, std::int32_t xLong) {
    if (xLong < 0) Raise(RunTimeErrorNumber::SubscriptOutOfRange);
    if (lData == 0 && xLong > 0) Raise(RunTimeErrorNumber::InvalidProcedureCall);
    MemorySource memory({reinterpret_cast<const std::uint8_t*>(lData), static_cast<std::size_t>(xLong)});
    Open(memory);
    return 0;
}

void LoadPNG::Open(ByteSource& source) {
    if (reader_.Read(source)) DecodeImage();
}

void LoadPNG::DecodeImage() {
    const ConversionSettings settings = {.AppliesTransparency = appliesTransparency_ != False,
                                         .AppliesAlpha = appliesAlpha_ == True};
    DibImage image = reader_.Decode(settings);
    if (!image) return;
    if (image.IsTransparent) {
        DeviceBackground background(backgroundDC_, backgroundX_, backgroundY_);
        Composite(image, style_, &background);
    }
    Draw(image);
}

void LoadPNG::Draw(const DibImage& image) noexcept {
    const bool takesRows = CBitmap::TakesRowsAsTheyAre(picBox_);
    bitmap_ = BuildBitmap(image, takesRows ? picBox_ : nullptr);
    if (!bitmap_) return;
    if (!takesRows || !CBitmap::DrawRows(image, picBox_, destinationX_, destinationY_)) BlitToPicBox();
}

void LoadPNG::BlitToPicBox() const noexcept {
    const MemoryDC memory(CreateCompatibleDC(picBox_));
    const Selection selected = Select(memory.Get(), bitmap_.Get());
    TellShortageUnless(
        BitBlt(picBox_, destinationX_, destinationY_, width(), height(), memory.Get(), 0, 0, SRCCOPY));
}

} // namespace vantik

#include "png/LoadPNG.h"

#include <utility>

#include "base/RunTimeError.h"
#include "png/DeviceBackground.h"
#include "png/OutOfMemory.h"

namespace vantik {

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
    place_.X = X;
    place_.Y = Y;
}

std::int32_t LoadPNG::OpenPNG(const std::u16string& filename) {
    Paint(DecodeFile(filename));
    return 0;
}

std::int32_t LoadPNG::OpenPNGfromRes(std::uintptr_t lData, std::int32_t xLong) {
    if (xLong < 0) Raise(RunTimeErrorNumber::SubscriptOutOfRange);
    if (lData == 0 && xLong > 0) Raise(RunTimeErrorNumber::InvalidProcedureCall);
    MemorySource memory({reinterpret_cast<const std::uint8_t*>(lData), static_cast<std::size_t>(xLong)});
    Paint(Decode(memory));
    return 0;
}

DibImage LoadPNG::DecodeFile(const std::u16string& filename) {
    reader_.Begin();
    FileSource file = WithOutOfMemory([&] { return FileSource(filename); });
    return Decode(file);
}

DibImage LoadPNG::Decode(ByteSource& source) {
    if (!reader_.Read(source)) return {};
    return reader_.Decode(
        {.AppliesTransparency = appliesTransparency_ != False, .AppliesAlpha = appliesAlpha_ == True});
}

void LoadPNG::Paint(DibImage image) {
    if (!image) return;
    DeviceBackground background(backgroundDC_, backgroundX_, backgroundY_);
    auto picture = WithOutOfMemory([&] { return std::make_shared<const DibImage>(std::move(image)); });
    bitmap_ = PaintPicture(std::move(picture), background, place_);
}

} // namespace vantik

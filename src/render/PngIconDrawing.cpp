#include "render/PngIconDrawing.h"

#include <utility>

#include "platform/FileStore.h"
#include "png/DeviceBackground.h"
#include "png/LoadPNG.h"
#include "png/OutOfMemory.h"

namespace vantik {

namespace {

// As it is before it is mixed with anything, which is the same whoever draws it. Null for what is no picture.
std::shared_ptr<const DibImage> Decode(const std::u16string& path) {
    LoadPNG png;
    png.SetAlpha(True);
    png.SetTrans(True);
    DibImage image = png.DecodeFile(path);
    if (!image) return nullptr;
    return WithOutOfMemory([&] { return std::make_shared<const DibImage>(std::move(image)); });
}

} // namespace

OwnedBitmap DrawPngFile(const std::u16string& path, HDC targetDC, HBITMAP /*targetBitmap*/, std::int32_t x,
                        std::int32_t y, std::uint8_t style, std::int16_t /*direct*/, HDC picBox) {
    DeviceBackground background(targetDC, x, y);
    return DrawPngFile(path, IdentityOf(path), background, x, y, style, picBox);
}

OwnedBitmap DrawPngFile(const std::u16string& path, const FileIdentity& identity,
                        BackgroundSource& background, std::int32_t x, std::int32_t y, std::uint8_t style,
                        HDC picBox) {
    auto picture = Shared<DibImage>(path, identity, FileContent::Icon, [&] { return Decode(path); });
    if (!picture) return {};
    return PaintPicture(std::move(picture), background, {.PicBox = picBox, .X = x, .Y = y, .Style = style});
}

} // namespace vantik

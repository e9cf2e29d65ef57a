#include "skin/IconPainter.h"

#include "base/RunTimeError.h"
#include "render/PngIconDrawing.h"

namespace vantik {

void IconPainter::ReadSize(SkinIcon& icon) {
    constexpr PngSize nothing = {-1, -1};
    PngSize size = nothing;
    try {
        ReadPngFileSize(icon.FilePath, size);
    } catch (const RunTimeError&) {
        // A file that is locked or broken tells no size.
    }
    if (size.LastPngWidth == nothing.LastPngWidth) return;
    icon.Width = size.LastPngWidth;
    icon.Height = size.LastPngHeight;
    state_.LastPng = size;
}

void IconPainter::Follow(std::int16_t icon) {
    SkinIcon& entry = *state_.SkinIcons.At(icon);
    const FileStamp now = StampOf(entry.FilePath);
    const bool isKnown = entry.Handles[0] != NoBitmap && stamps_[icon] == now;
    stamps_[icon] = now;
    if (isKnown) {
        state_.LastPng = {entry.Width, entry.Height};
    } else {
        pictures_.Release(icon);
        ReadSize(entry);
    }
}

OwnedBitmap IconPainter::DrawFile(const std::u16string& path, IconStyle style, std::int32_t x, std::int32_t y,
                                  std::int16_t direct) {
    const HDC surface = host_.hDC();
    const auto bitmap = static_cast<HBITMAP>(GetCurrentObject(surface, OBJ_BITMAP));
    try {
        return DrawPngFile(path, surface, bitmap, x, y, style, direct, surface);
    } catch (const RunTimeError&) {
        return {}; // nothing was drawn
    }
}

void IconPainter::Draw(std::int16_t icon, std::uint8_t slot, IconStyle style, const PixelBlock& beneath,
                       std::int16_t direct) {
    if (pictures_.Copy(host_.hDC(), icon, slot, style, beneath)) return;
    OwnedBitmap drawn = DrawFile(state_.SkinIcons.At(icon)->FilePath, style, beneath.X, beneath.Y, direct);
    if (drawn) pictures_.Keep(icon, slot, style, beneath, std::move(drawn));
}

} // namespace vantik

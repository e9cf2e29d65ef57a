#include "skin/IconPainter.h"

#include "base/ErrorText.h"
#include "platform/Shortage.h"
#include "render/FrameGeometry.h"
#include "render/PngIconDrawing.h"

namespace vantik {

namespace {

// A file that asks for more memory than any file gets is called so; no other try would change that.
void TellIfUnexplained(const RunTimeError& error) noexcept {
    if (!error.IsExplained()) TellIfShortage();
}

} // namespace

// Of a size whose height does not fit 16 bits the width is there before that raises.
IconPainter::Answer IconPainter::ReadLast(const std::u16string& path) {
    PngSize size = {-1, -1};
    auto answer = Answer::None;
    try {
        ReadPngFileSize(path, size);
        if (size.LastPngHeight > 0) answer = Answer::Size;
    } catch (RunTimeError& error) {
        TellIfUnexplained(error);
        failures_.Failed(path, error);
        answer = Answer::Refused;
    }
    if (size.LastPngWidth > 0) state_.LastPng.LastPngWidth = size.LastPngWidth;
    if (size.LastPngHeight > 0) state_.LastPng.LastPngHeight = size.LastPngHeight;
    return answer;
}

void IconPainter::TakeLast(SkinIcon& icon) const noexcept {
    icon.Width = state_.LastPng.LastPngWidth;
    icon.Height = state_.LastPng.LastPngHeight;
}

bool IconPainter::ReadSize(SkinIcon& icon) {
    const Answer answer = ReadLast(icon.FilePath);
    if (answer == Answer::Size) TakeLast(icon);
    return answer != Answer::Refused;
}

bool IconPainter::Follow(std::int16_t icon) {
    SkinIcon& entry = *state_.SkinIcons.At(icon);
    const FileStamp now = StampOf(entry.FilePath);
    const bool isKnown = entry.Handles[0] != NoBitmap && stamps_[icon] == now;
    stamps_[icon] = now;
    if (isKnown) {
        state_.LastPng = {entry.Width, entry.Height};
        return true;
    }
    pictures_.Release(icon);
    if (ReadLast(entry.FilePath) == Answer::Refused) return false;
    TakeLast(entry);
    return true;
}

OwnedBitmap IconPainter::DrawFile(const std::u16string& path, IconStyle style, std::int32_t x, std::int32_t y,
                                  std::int16_t direct) {
    const HDC surface = host_.hDC();
    const auto bitmap = static_cast<HBITMAP>(GetCurrentObject(surface, OBJ_BITMAP));
    try {
        OwnedBitmap drawn = DrawPngFile(path, surface, bitmap, x, y, style, direct, surface);
        if (!drawn)
            Raise(RunTimeErrorNumber::InvalidPicture, PathText{path}, u": nothing can be drawn of it");
        failures_.Succeeded(path);
        return drawn;
    } catch (RunTimeError& error) {
        TellIfUnexplained(error);
        failures_.Failed(path, error);
        return {};
    }
}

bool IconPainter::IsHidden(const LayoutRect& place, const LayoutRect& room) noexcept {
    return !IsEmpty(place) && IsEmpty(Intersection(place, room));
}

PixelBlock IconPainter::ReadBeneath(const LayoutRect& place, const LayoutRect& room) {
    LayoutRect seen = Intersection(place, room);
    if (IsEmpty(seen)) seen = place;
    PixelBlock block = Read(seen.Left, seen.Top, seen.Width, seen.Height);
    block.SkippedColumns = seen.Left - place.Left;
    block.SkippedRows = seen.Top - place.Top;
    return block;
}

void IconPainter::Draw(std::int16_t icon, std::uint8_t slot, IconStyle style, const PixelBlock& beneath,
                       std::int16_t direct) {
    if (pictures_.Copy(host_.hDC(), icon, slot, style, beneath)) return;
    const unsigned shortages = ShortagesSoFar();
    OwnedBitmap drawn = DrawFile(state_.SkinIcons.At(icon)->FilePath, style,
                                 beneath.X - beneath.SkippedColumns, beneath.Y - beneath.SkippedRows, direct);
    if (shortages != ShortagesSoFar()) return; // it may be mixed over anything
    if (drawn) pictures_.Keep(host_.hDC(), icon, slot, style, beneath, std::move(drawn));
}

} // namespace vantik

#include "skin/IconPainter.h"

#include <cstring>

#include "base/ErrorText.h"
#include "platform/Shortage.h"
#include "png/DeviceBackground.h"
#include "render/FrameGeometry.h"
#include "render/PngIconDrawing.h"
#include "render/SharedPngSize.h"

namespace vantik {

namespace {

// A file that asks for more memory than any file gets is called so; no other try would change that.
void TellIfUnexplained(const RunTimeError& error) noexcept {
    if (!error.IsExplained()) TellIfShortage();
}

// What lies beneath a picture: read already, or where that is not all of it read from the surface.
class Underlay final : public BackgroundSource {
public:
    Underlay(HDC surface, const PixelBlock& block) noexcept : surface_(surface), block_(block) {}

    std::int32_t X() const noexcept { return block_.X - block_.SkippedColumns; }
    std::int32_t Y() const noexcept { return block_.Y - block_.SkippedRows; }

    void ReadRows(std::int32_t width, std::int32_t height, std::span<std::uint8_t> rows) noexcept override {
        if (!Covers(width, height)) return DeviceBackground(surface_, X(), Y()).ReadRows(width, height, rows);
        const std::size_t stride = rows.size() / static_cast<std::size_t>(height);
        for (std::int32_t y = 0; y < height; ++y) {
            const std::uint32_t* pixel = block_.Values.data() + std::ptrdiff_t{y} * block_.Width;
            std::uint8_t* to = &rows[static_cast<std::size_t>(height - 1 - y) * stride];
            for (std::int32_t x = 0; x < width; ++x, ++pixel, to += 3) std::memcpy(to, pixel, 3);
        }
    }

private:
    bool Covers(std::int32_t width, std::int32_t height) const noexcept {
        return !block_.Values.empty() && block_.SkippedColumns == 0 && block_.SkippedRows == 0 &&
               block_.Width >= width && block_.Height >= height;
    }

    HDC surface_;
    const PixelBlock& block_;
};

} // namespace

// Of a size whose height does not fit 16 bits the width is there before that raises.
IconPainter::Answer IconPainter::ReadLast(const std::u16string& path, const FileIdentity& identity) {
    PngSize size = {-1, -1};
    auto answer = Answer::None;
    try {
        ReadSharedPngFileSize(path, identity, size);
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

IconPainter::Look IconPainter::ReadSize(SkinIcon& icon) {
    const FileIdentity now = IdentityOf(icon.FilePath);
    const Answer answer = ReadLast(icon.FilePath, now);
    if (answer == Answer::Size) TakeLast(icon);
    return answer == Answer::Refused ? Look() : now;
}

IconPainter::Look IconPainter::Follow(std::int16_t icon) {
    SkinIcon& entry = *state_.SkinIcons.At(icon);
    const FileIdentity now = IdentityOf(entry.FilePath);
    const bool isKnown = entry.Handles[0] != NoBitmap && now.IsStill(identities_[icon]);
    identities_[icon] = now;
    if (isKnown) {
        state_.LastPng = {entry.Width, entry.Height};
        return now;
    }
    pictures_.Release(icon);
    if (ReadLast(entry.FilePath, now) == Answer::Refused) return std::nullopt;
    TakeLast(entry);
    return now;
}

OwnedBitmap IconPainter::DrawFile(const std::u16string& path, const Look& look, IconStyle style,
                                  const PixelBlock& beneath) {
    const HDC surface = host_.hDC();
    Underlay underlay(surface, beneath);
    try {
        OwnedBitmap drawn = DrawPngFile(path, look ? *look : IdentityOf(path), underlay, underlay.X(),
                                        underlay.Y(), style, surface);
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
                       const Look& look) {
    if (pictures_.Copy(host_.hDC(), icon, slot, style, beneath)) return;
    const unsigned shortages = ShortagesSoFar();
    OwnedBitmap drawn = DrawFile(state_.SkinIcons.At(icon)->FilePath, look, style, beneath);
    if (shortages != ShortagesSoFar()) return; // it may be mixed over anything
    if (drawn) pictures_.Keep(host_.hDC(), icon, slot, style, beneath, std::move(drawn));
}

} // namespace vantik

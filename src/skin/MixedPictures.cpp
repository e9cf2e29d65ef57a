#include "skin/MixedPictures.h"

#include <algorithm>

#include "gfx/OutlivingBitmaps.h"
#include "platform/Shortage.h"

namespace vantik {

namespace {

constexpr std::int32_t MaxExtent = 256; // larger icons are mixed afresh each time
constexpr std::size_t ReleasedSlots = 3;

BitmapSlot AsSlot(HBITMAP bitmap) noexcept { return reinterpret_cast<BitmapSlot>(bitmap); }

// The bitmap's top left part, at most as large as what it was mixed over.
PixelBlock PixelsOf(HBITMAP bitmap, const PixelBlock& beneath) {
    BITMAP size = {};
    if (beneath.Values.empty() || !GetObjectW(bitmap, sizeof size, &size)) return {};
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), size.bmWidth, -size.bmHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    const auto stride = static_cast<std::size_t>(size.bmWidth);
    std::vector<std::uint32_t> rows(stride * static_cast<std::size_t>(size.bmHeight));
    const ScreenDC screen = GetScreenDC();
    const auto count = static_cast<UINT>(size.bmHeight);
    if (!GetDIBits(screen.Get(), bitmap, 0, count, rows.data(), &info, DIB_RGB_COLORS)) return {};

    PixelBlock block;
    block.Width = std::min<std::int32_t>(beneath.Width, size.bmWidth);
    block.Height = std::min<std::int32_t>(beneath.Height, size.bmHeight);
    for (auto row = rows.begin(); row != rows.begin() + block.Height * size.bmWidth; row += size.bmWidth)
        block.Values.insert(block.Values.end(), row, row + block.Width);
    return block;
}

} // namespace

// Grows and never shrinks; empty when it cannot be had.
DibSurface& MixedPictures::ScratchOf(std::int32_t width, std::int32_t height) {
    if (scratch_.Width() < width || scratch_.Height() < height)
        scratch_ = DibSurface(std::max(width, scratch_.Width()), std::max(height, scratch_.Height()));
    return scratch_;
}

PixelBlock MixedPictures::Read(HDC surface, std::int32_t x, std::int32_t y, std::int32_t width,
                               std::int32_t height) {
    PixelBlock block{x, y, width, height, {}};
    if (width < 1 || height < 1 || width > MaxExtent || height > MaxExtent) return block;
    DibSurface& scratch = ScratchOf(width, height);
    if (!scratch) return block;
    GdiFlush();
    for (std::int32_t row = 0; row < height; ++row) std::fill_n(scratch.Row(row), width, 0u);
    if (!BitBlt(scratch.DC(), 0, 0, width, height, surface, x, y, SRCCOPY)) return block;
    GdiFlush();
    block.Values.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    for (std::int32_t row = 0; row < height; ++row)
        std::transform(scratch.Row(row), scratch.Row(row) + width, std::back_inserter(block.Values),
                       [](std::uint32_t pixel) { return pixel & 0xFFFFFF; });
    return block;
}

void MixedPictures::Write(HDC surface, std::int32_t x, std::int32_t y, const PixelBlock& block) {
    if (block.Values.empty()) return;
    DibSurface& scratch = ScratchOf(block.Width, block.Height);
    if (!scratch) return TellShortage();
    GdiFlush();
    auto values = block.Values.begin();
    for (std::int32_t row = 0; row < block.Height; ++row, values += block.Width)
        std::copy_n(values, block.Width, scratch.Row(row));
    TellShortageUnless(BitBlt(surface, x, y, block.Width, block.Height, scratch.DC(), 0, 0, SRCCOPY));
}

// A slot that somebody else emptied - its icon was forgotten - has no pictures any more.
std::vector<MixedPictures::Picture>& MixedPictures::PicturesOf(Key key) {
    std::vector<Picture>& pictures = pictures_[key];
    const SkinIcon* icon = icons_.At(key.Icon);
    if (!icon || icon->Handles[key.Slot] == NoBitmap) pictures.clear();
    return pictures;
}

bool MixedPictures::Copy(HDC surface, std::int16_t icon, std::uint8_t slot, std::uint8_t style,
                         const PixelBlock& beneath) {
    if (beneath.Values.empty()) return false;
    for (const Picture& picture : PicturesOf({icon, slot})) {
        if (picture.Style != style || !picture.Beneath.LooksLike(beneath)) continue;
        Write(surface, beneath.X, beneath.Y, picture.Mixed);
        icons_.At(icon)->Handles[slot] = AsSlot(picture.Bitmap.Get());
        return true;
    }
    return false;
}

void MixedPictures::Keep(std::int16_t icon, std::uint8_t slot, std::uint8_t style, PixelBlock beneath,
                         OwnedBitmap picture) {
    std::vector<Picture>& pictures = PicturesOf({icon, slot});
    PixelBlock mixed = PixelsOf(picture.Get(), beneath);
    if (mixed.Values.empty()) beneath.Values.clear();
    const auto isLost = [](const Picture& old) { return old.Beneath.Values.empty(); }; // never found again
    std::erase_if(pictures, isLost);
    if (pictures.size() == PicturesPerSlot) pictures.erase(pictures.begin());
    pictures.push_back({style, std::move(beneath), std::move(mixed), std::move(picture)});
    icons_.At(icon)->Handles[slot] = AsSlot(pictures.back().Bitmap.Get());
}

void MixedPictures::Release(std::int16_t icon) noexcept {
    if (SkinIcon* entry = icons_.At(icon)) entry->Handles.fill(NoBitmap);
    std::erase_if(pictures_, [&](const auto& kept) { return kept.first.Icon == icon; });
}

void MixedPictures::Terminate() noexcept {
    for (auto& [key, pictures] : pictures_) {
        const SkinIcon* icon = icons_.At(key.Icon);
        if (!icon || key.Slot < ReleasedSlots) continue;
        for (Picture& picture : pictures)
            if (AsSlot(picture.Bitmap.Get()) == icon->Handles[key.Slot])
                KeepUntilUnloaded(std::move(picture.Bitmap));
    }
    pictures_.clear();
    for (SkinIcon& icon : icons_.Entries) icon.Handles.fill(NoBitmap);
}

} // namespace vantik

#include "skin/MixedPictures.h"

#include <algorithm>

namespace vantik {

namespace {

constexpr std::int32_t MaxExtent = 256; // larger icons are mixed afresh each time
constexpr std::size_t ReleasedSlots = 3;

BitmapSlot AsSlot(HBITMAP bitmap) noexcept { return reinterpret_cast<BitmapSlot>(bitmap); }

SIZE SizeOf(HBITMAP bitmap) noexcept {
    BITMAP description = {};
    GetObjectW(bitmap, sizeof description, &description);
    return {description.bmWidth, description.bmHeight};
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
    PatBlt(scratch.DC(), 0, 0, width, height, BLACKNESS);
    BitBlt(scratch.DC(), 0, 0, width, height, surface, x, y, SRCCOPY);
    GdiFlush();
    block.Values.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    for (std::int32_t row = 0; row < height; ++row)
        std::transform(scratch.Row(row), scratch.Row(row) + width, std::back_inserter(block.Values),
                       [](std::uint32_t pixel) { return pixel & 0xFFFFFF; });
    return block;
}

void MixedPictures::Restore(HDC surface, const PixelBlock& block) {
    if (block.Values.empty()) return;
    DibSurface& scratch = ScratchOf(block.Width, block.Height);
    if (!scratch) return;
    GdiFlush();
    auto values = block.Values.begin();
    for (std::int32_t row = 0; row < block.Height; ++row, values += block.Width)
        std::copy_n(values, block.Width, scratch.Row(row));
    BitBlt(surface, block.X, block.Y, block.Width, block.Height, scratch.DC(), 0, 0, SRCCOPY);
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
        if (!source_) source_ = MemoryDC(CreateCompatibleDC(nullptr));
        const HBITMAP bitmap = picture.Bitmap.Get();
        const Selection selected = Select(source_.Get(), bitmap);
        const SIZE size = SizeOf(bitmap);
        BitBlt(surface, beneath.X, beneath.Y, std::min<int>(beneath.Width, size.cx),
               std::min<int>(beneath.Height, size.cy), source_.Get(), 0, 0, SRCCOPY);
        icons_.At(icon)->Handles[slot] = AsSlot(bitmap);
        return true;
    }
    return false;
}

void MixedPictures::Keep(std::int16_t icon, std::uint8_t slot, std::uint8_t style, PixelBlock beneath,
                         OwnedBitmap picture) {
    std::vector<Picture>& pictures = PicturesOf({icon, slot});
    std::erase_if(pictures,
                  [](const Picture& old) { return old.Beneath.Values.empty(); }); // never found again
    if (pictures.size() == PicturesPerSlot) pictures.erase(pictures.begin());
    pictures.push_back({style, std::move(beneath), std::move(picture)});
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
            if (AsSlot(picture.Bitmap.Get()) == icon->Handles[key.Slot]) picture.Bitmap.Detach();
    }
    pictures_.clear();
    for (SkinIcon& icon : icons_.Entries) icon.Handles.fill(NoBitmap);
}

} // namespace vantik

#include "skin/MixedPictures.h"

#include <algorithm>

#include "gfx/OutlivingBitmaps.h"

namespace vantik {

namespace {

constexpr std::size_t ReleasedSlots = 3;

BitmapSlot AsSlot(HBITMAP bitmap) noexcept { return reinterpret_cast<BitmapSlot>(bitmap); }

// Some of the bitmap's rows, the lowest one first; empty when they cannot be had.
std::vector<std::uint32_t> RowsOf(HDC surface, HBITMAP bitmap, SIZE size, std::int32_t first,
                                  std::int32_t count) {
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), size.cx, size.cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    std::vector<std::uint32_t> rows(static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(count));
    const auto fromBelow = static_cast<UINT>(size.cy - first - count);
    if (!GetDIBits(surface, bitmap, fromBelow, static_cast<UINT>(count), rows.data(), &info, DIB_RGB_COLORS))
        return {};
    return rows;
}

SIZE SizeOf(HBITMAP bitmap) noexcept {
    BITMAP description = {};
    if (!GetObjectW(bitmap, sizeof description, &description)) return {0, 0};
    return {description.bmWidth, description.bmHeight};
}

// The part of the bitmap that lies over what it was mixed over.
PixelBlock PixelsOf(HDC surface, HBITMAP bitmap, const PixelBlock& beneath) {
    const SIZE size = SizeOf(bitmap);
    PixelBlock block;
    block.Width = std::min<std::int32_t>(beneath.Width, size.cx - beneath.SkippedColumns);
    block.Height = std::min<std::int32_t>(beneath.Height, size.cy - beneath.SkippedRows);
    if (beneath.Values.empty() || block.Width < 1 || block.Height < 1) return {};
    const auto rows = RowsOf(surface, bitmap, size, beneath.SkippedRows, block.Height);
    for (auto row = rows.end(); row != rows.begin();) {
        row -= size.cx;
        const auto from = row + beneath.SkippedColumns;
        block.Values.insert(block.Values.end(), from, from + block.Width);
    }
    return block;
}

// A whole icon can be thousands of times as large as what is seen of it.
OwnedBitmap CutTo(const PixelBlock& seen, SIZE size, OwnedBitmap picture) noexcept {
    if (seen.Values.empty() || (seen.Width == size.cx && seen.Height == size.cy)) return picture;
    OwnedBitmap cut(CreateBitmap(seen.Width, seen.Height, 1, 32, seen.Values.data()));
    return cut ? std::move(cut) : std::move(picture);
}

// A large icon takes long to decode, and where it covers the caption no two bars look the same beneath it: more of its
// pictures are kept, as long as little of it is seen.
std::size_t MostOf(const PixelBlock& seen, SIZE size) noexcept {
    constexpr std::size_t largeIcon = 64 * 1024, morePictures = 64;
    const std::size_t pixels = static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy);
    return pixels > largeIcon && seen.Values.size() <= largeIcon ? morePictures
                                                                 : MixedPictures::PicturesPerSlot;
}

} // namespace

// A slot that somebody else emptied - its icon was forgotten - has no pictures any more.
MixedPictures::Slot& MixedPictures::SlotOf(Key key) {
    Slot& slot = slots_[key];
    const SkinIcon* icon = icons_.At(key.Icon);
    if (!icon || icon->Handles[key.Slot] == NoBitmap) slot = {};
    return slot;
}

bool MixedPictures::Copy(HDC surface, std::int16_t icon, std::uint8_t slot, std::uint8_t style,
                         const PixelBlock& beneath) {
    if (beneath.Values.empty()) return false;
    const std::vector<Picture>& pictures = SlotOf({icon, slot}).Pictures;
    const auto found = std::ranges::find_if(pictures, [&](const Picture& picture) {
        return picture.Style == style && picture.Beneath.LooksLike(beneath);
    });
    if (found == pictures.end()) return false;
    DrawBlock(surface, beneath.X, beneath.Y, found->Mixed);
    return true;
}

void MixedPictures::Keep(HDC surface, std::int16_t icon, std::uint8_t slot, std::uint8_t style,
                         PixelBlock beneath, OwnedBitmap picture) {
    auto& [pictures, bitmap] = SlotOf({icon, slot});
    PixelBlock mixed = PixelsOf(surface, picture.Get(), beneath);
    if (mixed.Values.empty()) beneath.Values.clear();
    const SIZE size = SizeOf(picture.Get());
    const auto isLost = [](const Picture& old) { return old.Beneath.Values.empty(); }; // never found again
    std::erase_if(pictures, isLost);
    if (pictures.size() >= MostOf(mixed, size)) pictures.erase(pictures.begin());
    bitmap = CutTo(mixed, size, std::move(picture));
    icons_.At(icon)->Handles[slot] = AsSlot(bitmap.Get());
    pictures.push_back({style, std::move(beneath), std::move(mixed)});
}

void MixedPictures::Release(std::int16_t icon) noexcept {
    if (SkinIcon* entry = icons_.At(icon)) entry->Handles.fill(NoBitmap);
    std::erase_if(slots_, [&](const auto& kept) { return kept.first.Icon == icon; });
}

void MixedPictures::Terminate() noexcept {
    for (auto& [key, slot] : slots_) {
        const SkinIcon* icon = icons_.At(key.Icon);
        if (icon && key.Slot >= ReleasedSlots && AsSlot(slot.Bitmap.Get()) == icon->Handles[key.Slot])
            KeepUntilUnloaded(std::move(slot.Bitmap));
    }
    slots_.clear();
    for (SkinIcon& icon : icons_.Entries) icon.Handles.fill(NoBitmap);
}

} // namespace vantik

#include "skin/MixedPictures.h"

#include <algorithm>

#include "gfx/OutlivingBitmaps.h"
#include "platform/Shortage.h"

namespace vantik {

namespace {

constexpr std::int32_t MaxExtent = 2048; // of what larger icons cover is mixed afresh each time
constexpr std::size_t ReleasedSlots = 3;

BitmapSlot AsSlot(HBITMAP bitmap) noexcept { return reinterpret_cast<BitmapSlot>(bitmap); }

// Some of the bitmap's rows, the lowest one first; empty when they cannot be had.
std::vector<std::uint32_t> RowsOf(HBITMAP bitmap, SIZE size, std::int32_t first, std::int32_t count) {
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), size.cx, size.cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    std::vector<std::uint32_t> rows(static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(count));
    const ScreenDC screen = GetScreenDC();
    const auto fromBelow = static_cast<UINT>(size.cy - first - count);
    if (!GetDIBits(screen.Get(), bitmap, fromBelow, static_cast<UINT>(count), rows.data(), &info,
                   DIB_RGB_COLORS))
        return {};
    return rows;
}

SIZE SizeOf(HBITMAP bitmap) noexcept {
    BITMAP description = {};
    if (!GetObjectW(bitmap, sizeof description, &description)) return {0, 0};
    return {description.bmWidth, description.bmHeight};
}

// The part of the bitmap that lies over what it was mixed over.
PixelBlock PixelsOf(HBITMAP bitmap, const PixelBlock& beneath) {
    const SIZE size = SizeOf(bitmap);
    PixelBlock block;
    block.Width = std::min<std::int32_t>(beneath.Width, size.cx - beneath.SkippedColumns);
    block.Height = std::min<std::int32_t>(beneath.Height, size.cy - beneath.SkippedRows);
    if (beneath.Values.empty() || block.Width < 1 || block.Height < 1) return {};
    const auto rows = RowsOf(bitmap, size, beneath.SkippedRows, block.Height);
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
    const SIZE size = SizeOf(picture.Get());
    picture = CutTo(mixed, size, std::move(picture));
    const auto isLost = [](const Picture& old) { return old.Beneath.Values.empty(); }; // never found again
    std::erase_if(pictures, isLost);
    if (pictures.size() >= MostOf(mixed, size)) pictures.erase(pictures.begin());
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

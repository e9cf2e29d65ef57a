// Icons mixed over what lay beneath them, kept for the next time that the same lies beneath.
//
// Each of an icon's slots shows one picture's handle, the one used last; behind it stand the few pictures that the slot
// had over other looks, so that bars of different looks in turn do not push each other's picture out.
#pragma once

#include <compare>
#include <cstdint>
#include <map>
#include <vector>

#include "gfx/DibSurface.h"
#include "model/Skin.h"

namespace vantik {

// A part of a surface, so that it can be compared and put back. Without values when it is empty or too large to be kept.
struct PixelBlock {
    std::int32_t X = 0, Y = 0; // where it was read
    std::int32_t Width = 0, Height = 0;
    std::vector<std::uint32_t> Values; // 0xRRGGBB, 0 where the surface has no pixels
    std::int32_t SkippedColumns = 0,
                 SkippedRows = 0; // of the picture that goes there: they lie where it is not seen

    bool LooksLike(const PixelBlock& other) const noexcept {
        return Width == other.Width && Height == other.Height && SkippedColumns == other.SkippedColumns &&
               SkippedRows == other.SkippedRows && Values == other.Values;
    }
};

class MixedPictures {
public:
    static constexpr std::size_t PicturesPerSlot = 3; // one for each look of a bar; more of large icons

    explicit MixedPictures(SkinIcons& icons) noexcept : icons_(icons) {}
    ~MixedPictures() { Terminate(); }
    MixedPictures(const MixedPictures&) = delete;
    MixedPictures& operator=(const MixedPictures&) = delete;

    PixelBlock Read(HDC surface, std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height);
    void Write(HDC surface, std::int32_t x, std::int32_t y, const PixelBlock& block);

    // Copies the picture that was mixed in this style over just these pixels to where they were read, no more of it than
    // lies over them. False when the slot has none.
    bool Copy(HDC surface, std::int16_t icon, std::uint8_t slot, std::uint8_t style,
              const PixelBlock& beneath);

    // The slot shows the new picture, cut to what lies over the pixels. Of those it had, the oldest goes when there are too
    // many.
    void Keep(std::int16_t icon, std::uint8_t slot, std::uint8_t style, PixelBlock beneath,
              OwnedBitmap picture);

    // Deletes the icon's pictures and empties its slots.
    void Release(std::int16_t icon) noexcept;

    // Deletes all pictures but those that the fourth to sixth slots show, which stay until the module goes. All slots
    // are empty afterwards.
    void Terminate() noexcept;

private:
    struct Key {
        std::int16_t Icon;
        std::uint8_t Slot;
        friend auto operator<=>(const Key&, const Key&) = default;
    };
    struct Picture {
        std::uint8_t Style;
        PixelBlock Beneath;
        PixelBlock Mixed; // selecting the bitmap to copy from it would cost many times as much
        OwnedBitmap Bitmap;
    };

    std::vector<Picture>& PicturesOf(Key key);
    DibSurface& ScratchOf(std::int32_t width, std::int32_t height);

    SkinIcons& icons_;
    std::map<Key, std::vector<Picture>> pictures_; // oldest first
    DibSurface scratch_;
};

} // namespace vantik

// Icons mixed over what lay beneath them, kept for the next time that the same lies beneath.
//
// Each of an icon's slots shows the handle of one picture, the one mixed last; behind it stand the pixels of the few
// pictures that the slot had over other looks, so that bars of different looks in turn do not push each other's picture
// out.
#pragma once

#include <compare>
#include <cstdint>
#include <map>
#include <vector>

#include "gfx/Handles.h"
#include "model/Skin.h"
#include "skin/PixelBlock.h"

namespace vantik {

class MixedPictures {
public:
    static constexpr std::size_t PicturesPerSlot = 3; // one for each look of a bar; more of large icons

    explicit MixedPictures(SkinIcons& icons) noexcept : icons_(icons) {}
    ~MixedPictures() { Terminate(); }
    MixedPictures(const MixedPictures&) = delete;
    MixedPictures& operator=(const MixedPictures&) = delete;

    // Copies the picture that was mixed in this style over just these pixels to where they were read, no more of it than
    // lies over them. False when the slot has none.
    bool Copy(HDC surface, std::int16_t icon, std::uint8_t slot, std::uint8_t style,
              const PixelBlock& beneath);

    // The slot shows the new picture, cut to what lies over the pixels of the surface. Of those it had, the oldest goes when
    // there are too many.
    void Keep(HDC surface, std::int16_t icon, std::uint8_t slot, std::uint8_t style, PixelBlock beneath,
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
        PixelBlock Mixed; // selecting a bitmap to copy from it would cost many times as much
    };
    struct Slot {
        std::vector<Picture> Pictures; // oldest first
        OwnedBitmap Bitmap;            // of the youngest
    };

    Slot& SlotOf(Key key);

    SkinIcons& icons_;
    std::map<Key, Slot> slots_;
};

} // namespace vantik

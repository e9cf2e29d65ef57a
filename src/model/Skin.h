// What a skin definition says: rectangles of the skin bitmap and icon files.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace vantik {

// A rectangle of the skin bitmap. All four edges are inclusive pixels: Width = Right - Left + 1, Height = Bottom - Top + 1.
struct SkinRect {
    std::int32_t Left = 0, Top = 0, Right = 0, Bottom = 0, Width = 0, Height = 0;

    friend bool operator==(const SkinRect&, const SkinRect&) = default;
};

enum SkinRectIndex : std::int32_t {
    TabRect = 0,
    BRect = 1,
    FillPic0 = 2, // FillPic, LeftPic, RightPic and Line come in three variants, one for each BarState
    LeftPic0 = 5,
    RightPic0 = 8,
    Line0 = 11,
    RLeftTopPic = 14,
    RRightTopPic = 15,
    RLeftBottom = 16,
    RRightBottom = 17,
    FBackPic = 18,
    FTopLine = 19,
    FBottomLine = 20,
    FLeftLine = 21,
    FRightLine = 22,
};

// 26 rectangles, all zero at first; SubscriptOutOfRange outside 0..25.
class SkinRects {
public:
    static constexpr std::int32_t Count = 26;

    SkinRect& operator[](std::int32_t index);
    const SkinRect& operator[](std::int32_t index) const;

private:
    std::array<SkinRect, Count> rects_{};
};

// A cached GDI bitmap handle as a whole address, or NoBitmap.
using BitmapSlot = std::intptr_t;
inline constexpr BitmapSlot NoBitmap = -1;

// One entry of the definition's [Icon] section.
struct SkinIcon {
    static constexpr std::size_t HandleCount = 6;

    std::u16string Name;      // upper case
    std::u16string FilePath;  // full path of the PNG file
    std::int16_t Width = -1;  // pixels; -1 until known
    std::int16_t Height = -1; // pixels; -1 until known
    std::array<BitmapSlot, HandleCount> Handles = {NoBitmap, NoBitmap, NoBitmap,
                                                   NoBitmap, NoBitmap, NoBitmap};
};

// The icons of every definition read so far, oldest first, and the newest entry of each role (-1: none). The menu role
// alone starts at the first entry: no initialisation sets it, so a skin without a menu line shows its first icon there.
struct SkinIcons {
    std::vector<SkinIcon> Entries;
    std::int16_t DeleteButtonIcon = -1;
    std::int16_t LeftButtonIcon = -1;
    std::int16_t RightButtonIcon = -1;
    std::int16_t MenuBarIcon = 0;

    std::int16_t SkinIconCount() const noexcept { return static_cast<std::int16_t>(Entries.size()); }

    // Overflow when the count leaves 16 bits.
    SkinIcon& Append();

    // The entry at a role's index, or null when the index is -1 or past the list.
    const SkinIcon* At(std::int16_t index) const noexcept;
    SkinIcon* At(std::int16_t index) noexcept;
};

} // namespace vantik

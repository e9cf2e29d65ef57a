// What one control paints with, besides its portable state.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "gfx/pcMemDC.h"
#include "platform/ComPtr.h"

namespace vantik {

// Text from bottom to top, 12 pixels high.
inline LOGFONTW StartingCaptionFont() noexcept {
    LOGFONTW font = {};
    font.lfHeight = 12;
    font.lfEscapement = 900;
    return font;
}

// The looks that the surface shows now. They are not what the state says: the pointer moves without a repaint.
struct PaintedBars {
    std::int16_t FirstTab = 0;
    std::vector<std::uint8_t> States; // one per bar

    // Whether the tab's bar is on the surface, and in which look.
    bool Shows(std::int16_t tab) const noexcept {
        return tab >= FirstTab && static_cast<std::size_t>(tab - FirstTab) < States.size();
    }
    std::uint8_t StateOf(std::int16_t tab) const noexcept {
        return States[static_cast<std::size_t>(tab - FirstTab)];
    }
};

struct Surfaces {
    pcMemDC SkinDC;         // the skin bitmap
    pcMemDC PictureSurface; // the Picture; never shrinks, so it may be larger than the picture

    ComPtr<IPictureDisp> Picture;
    ComPtr<IFontDisp> Font;

    LOGFONTW CaptionFont = StartingCaptionFont(); // the turned font of the side placements
    std::int16_t CaptionTextHeight = 0;           // pixels of the text "A" at font size 12
    std::u16string ShortCaption;                  // the caption shortened last

    PaintedBars Painted;
};

} // namespace vantik

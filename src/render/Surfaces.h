// What one control paints with, besides its portable state.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "gfx/pcMemDC.h"
#include "model/LayoutRect.h"
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
class PaintedBars {
public:
    // A row of bars that are about to be painted.
    void Reset(const LayoutCache& layout) {
        firstTab_ = layout.FirstVisibleTab;
        states_.assign(static_cast<std::size_t>(std::max<std::int16_t>(layout.VisibleBarCount, 0)),
                       BarNormal);
    }
    void Note(std::int16_t tab, std::uint8_t state) noexcept {
        if (Shows(tab)) states_[static_cast<std::size_t>(tab - firstTab_)] = state;
    }

    bool Shows(std::int16_t tab) const noexcept {
        return tab >= firstTab_ && static_cast<std::size_t>(tab - firstTab_) < states_.size();
    }
    // The look of a bar that the surface shows; normal for any other.
    std::uint8_t StateOf(std::int16_t tab) const noexcept {
        return Shows(tab) ? states_[static_cast<std::size_t>(tab - firstTab_)] : std::uint8_t{BarNormal};
    }

private:
    std::int16_t firstTab_ = 0;
    std::vector<std::uint8_t> states_;
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

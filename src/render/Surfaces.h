// What one control paints with, besides its portable state.
#pragma once

#include <cstdint>
#include <string>

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

struct Surfaces {
    pcMemDC SkinDC;         // the skin bitmap
    pcMemDC PictureSurface; // the Picture; never shrinks, so it may be larger than the picture

    ComPtr<IPictureDisp> Picture;
    ComPtr<IFontDisp> Font;

    LOGFONTW CaptionFont = StartingCaptionFont(); // the turned font of the side placements
    std::int16_t CaptionTextHeight = 0;           // pixels of the text "A" at font size 12
    std::u16string ShortCaption;                  // the caption shortened last
};

} // namespace vantik

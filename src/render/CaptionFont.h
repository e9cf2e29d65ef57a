// Fonts that captions are written in.
#pragma once

#include <cstdint>

#include "gfx/Handles.h"
#include "platform/ComPtr.h"

namespace vantik {

// The handle of a font object; it stays the object's. Null for null and for an object that cannot tell.
HFONT HandleOf(IFontDisp* font) noexcept;

// The height in pixels of the text "A" in the font at size 12. The font's own size stays as it was.
std::int16_t CaptionTextHeightOf(IFontDisp* font, HDC surface);

} // namespace vantik

// The bridge from the control to the PNG decoder: draws one PNG file over what lies beneath it.
#pragma once

#include <cstdint>
#include <string>

#include "gfx/Handles.h"
#include "platform/FileIdentity.h"
#include "png/Composite.h"

namespace vantik {

// Decodes the file and composes it onto `picBox` at (x, y), over a copy of what `targetDC` shows at that point; `style`
// is the decoder's colour treatment (0 to 2 grey from blue, green or red; 3 own colours; 4 at 80 percent value).
// Neither `targetBitmap` nor the turn `direct` changes anything. Returns the bitmap that was drawn, empty when nothing
// was. Refreshing the window is the caller's.
//
// A file that is no sound PNG draws nothing; a file that cannot be opened (FileNotFound, PathNotFound, PathFileAccess),
// broken image data (SubscriptOutOfRange) and images beyond memory (OutOfMemory) raise.
OwnedBitmap DrawPngFile(const std::u16string& path, HDC targetDC, HBITMAP targetBitmap, std::int32_t x,
                        std::int32_t y, std::uint8_t style, std::int16_t direct, HDC picBox);

// The same for who has looked at the file just now, and knows what lies beneath.
OwnedBitmap DrawPngFile(const std::u16string& path, const FileIdentity& identity,
                        BackgroundSource& background, std::int32_t x, std::int32_t y, std::uint8_t style,
                        HDC picBox);

} // namespace vantik

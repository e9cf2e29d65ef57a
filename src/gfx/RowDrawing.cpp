#include "gfx/RowDrawing.h"

#include "platform/Shortage.h"

namespace vantik {

BITMAPINFO FormatOfRows(SIZE size) noexcept {
    BITMAPINFO format = {};
    format.bmiHeader = {sizeof format.bmiHeader, size.cx, -size.cy, 1, RowsDepth, BI_RGB, 0, 0, 0, 0, 0};
    return format;
}

// Where nothing of the place can be seen, some systems say that they copied nothing.
void DrawRows(HDC target, const RECT& place, SIZE size, const std::uint32_t* rows, DWORD operation) noexcept {
    const BITMAPINFO format = FormatOfRows(size);
    const int copied =
        StretchDIBits(target, place.left, place.top, place.right - place.left, place.bottom - place.top, 0, 0,
                      size.cx, size.cy, rows, &format, DIB_RGB_COLORS, operation);
    TellShortageUnless(copied != 0 || !RectVisible(target, &place));
}

} // namespace vantik

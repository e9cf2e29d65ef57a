#include "SurfaceColour.h"

namespace vantik {

std::optional<COLORREF> SurfaceColour(IUnknown* control, HWND window) {
    RECT client = {};
    GetClientRect(window, &client);
    const HDC screen = GetDC(nullptr);
    const HDC dc = CreateCompatibleDC(screen);
    const HBITMAP pixel = CreateCompatibleBitmap(screen, 1, 1);
    ReleaseDC(nullptr, screen);
    const HGDIOBJ old = SelectObject(dc, pixel);
    OffsetRect(&client, -client.right / 2, -client.bottom / 2);
    const HRESULT drawn = OleDraw(control, DVASPECT_CONTENT, dc, &client);
    const COLORREF colour = GetPixel(dc, 0, 0);
    SelectObject(dc, old);
    DeleteObject(pixel);
    DeleteDC(dc);
    if (FAILED(drawn) || colour == CLR_INVALID) return std::nullopt;
    return colour;
}

} // namespace vantik

#include "ole/pages/ReadingBox.h"

namespace vantik {

namespace {

// What the box did before is kept with its window, whose number for its owner nobody else uses.
LRESULT CALLBACK Procedure(HWND box, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    const auto before = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(box, GWLP_USERDATA));
    const LRESULT answer = CallWindowProcW(before, box, message, wParam, lParam);
    return message == WM_GETDLGCODE ? answer & ~(DLGC_WANTALLKEYS | DLGC_HASSETSEL) : answer;
}

} // namespace

void LeaveKeysToPage(HWND box) noexcept {
    if (!box) return;
    SetWindowLongPtrW(box, GWLP_USERDATA, GetWindowLongPtrW(box, GWLP_WNDPROC));
    SetWindowLongPtrW(box, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure));
}

} // namespace vantik

#include "demos/form/design/Marks.h"

namespace vantik {

namespace {

void Paint(HWND mark, HDC dc) {
    RECT client = {};
    GetClientRect(mark, &client);
    FillRect(dc, &client, GetSysColorBrush(COLOR_HIGHLIGHT));
    constexpr LONG RoomForEdge = 4;
    if (client.right > RoomForEdge && client.bottom > RoomForEdge)
        FrameRect(dc, &client, GetSysColorBrush(COLOR_HIGHLIGHTTEXT));
}

// The pointer goes through to the control.
std::unique_ptr<FormWindow> MakeMark(HWND control) {
    auto self = std::make_shared<HWND>(nullptr);
    auto mark = std::make_unique<FormWindow>(
        L"", SIZE{1, 1},
        [self](UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
            if (message == WM_NCHITTEST) return HTTRANSPARENT;
            if (message != WM_ERASEBKGND) return std::nullopt;
            Paint(*self, reinterpret_cast<HDC>(wParam));
            return 1;
        },
        control);
    *self = mark->Handle();
    return mark;
}

} // namespace

void Marks::Show(const std::vector<Box>& places) {
    while (windows_.size() < places.size()) windows_.push_back(MakeMark(control_));
    for (std::size_t i = 0; i < windows_.size(); ++i) {
        const HWND mark = windows_[i]->Handle();
        if (i >= places.size()) {
            ShowWindow(mark, SW_HIDE);
            continue;
        }
        const Box& place = places[i];
        SetWindowPos(mark, HWND_TOP, place.Left, place.Top, place.Width, place.Height,
                     SWP_NOACTIVATE | SWP_SHOWWINDOW);
    }
}

} // namespace vantik

#include "ole/accessible/Windows.h"

#include <algorithm>

#include "render/BarGeometry.h"

namespace vantik {

namespace {

// Controls on other pages stand far outside, visible as ever.
bool ShowsIn(HWND child, const RECT& client) noexcept {
    RECT place = {}, common = {};
    return (GetWindowLongPtrW(child, GWL_STYLE) & WS_VISIBLE) && GetWindowRect(child, &place) &&
           IntersectRect(&common, &place, &client);
}

} // namespace

RECT ClientOnScreen(HWND window) noexcept {
    RECT client = {};
    GetClientRect(window, &client);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
    return client;
}
// One without a width stands at a place, too.
bool IsParked(HWND child, const RECT& control) noexcept {
    RECT place = {};
    return GetWindowRect(child, &place) &&
           (std::max(place.right, place.left + 1) <= control.left || place.left >= control.right);
}

bool Shows(HWND child, const RECT& control) noexcept {
    return (GetWindowLongPtrW(child, GWL_STYLE) & WS_VISIBLE) && !IsParked(child, control);
}

std::vector<HWND> ShownChildren(HWND window) {
    std::vector<HWND> shown;
    const RECT client = ClientOnScreen(window);
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (ShowsIn(child, client)) shown.push_back(child);
    return shown;
}

HWND ShownChildAt(HWND window, POINT screen) noexcept {
    ScreenToClient(window, &screen);
    const HWND found = ChildWindowFromPointEx(window, screen, CWP_SKIPINVISIBLE);
    return found == window ? nullptr : found;
}

HWND FocusedChild(HWND window) noexcept {
    HWND focused = GetFocus();
    if (!IsChild(window, focused)) return nullptr;
    while (GetAncestor(focused, GA_PARENT) != window) focused = GetAncestor(focused, GA_PARENT);
    return focused;
}

RECT OnScreen(HWND window, const LayoutRect& area) noexcept {
    RECT rect = {area.Left, area.Top, area.Right, area.Bottom};
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

bool IsUnderPointer(HWND window, const LayoutRect& area) noexcept {
    POINT pointer = {};
    if (!GetCursorPos(&pointer) || WindowFromPoint(pointer) != window) return false;
    ScreenToClient(window, &pointer);
    return IsPixelOf(area, pointer.x, pointer.y);
}

} // namespace vantik

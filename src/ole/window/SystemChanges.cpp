#include "ole/window/SystemChanges.h"

#include <vector>

namespace vantik {

namespace {

constexpr UINT ScaleChanged = 0x02E3; // WM_DPICHANGED_AFTERPARENT, which older systems have no name for

std::vector<HWND> ChildrenOf(HWND window) {
    std::vector<HWND> children;
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        children.push_back(child);
    return children;
}

} // namespace

bool IsSystemChange(UINT message) noexcept {
    switch (message) {
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
    case WM_SETTINGCHANGE:
    case ScaleChanged: return true;
    default: return false;
    }
}

// Any of them may end others, or all of them.
void PassSystemChangeOn(const Message& message) {
    if (message.Number != WM_SYSCOLORCHANGE && message.Number != WM_SETTINGCHANGE) return;
    for (const HWND child : ChildrenOf(message.Window))
        if (GetParent(child) == message.Window)
            SendMessageW(child, message.Number, message.WParam, message.LParam);
}

} // namespace vantik

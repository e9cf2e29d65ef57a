// A form with the control over all of it, as the listing in C++ makes it: in a window of class AtlAxWin.
#include "AtlHost.h"
#include "listing.cpp"

int main() {
    OleInitialize(nullptr);
    RECT size = {0, 0, 600, 220};
    AdjustWindowRect(&size, WS_OVERLAPPEDWINDOW, FALSE);
    const HWND form =
        CreateWindowExW(0, L"STATIC", L"Listing", WS_OVERLAPPEDWINDOW, 0, 0, size.right - size.left,
                        size.bottom - size.top, nullptr, nullptr, nullptr, nullptr);
    const AtlHost host(form, L"VantikFrameTabProject.VantikFrameTab");
    MoveWindow(host.Window(), 0, 0, 600, 220, FALSE);
    MakeTabs(&host.Control());
    ShowWindow(form, SW_SHOW);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
}

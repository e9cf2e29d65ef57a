// The form around a control that a listing in C++ sets up. It stays until its process is ended.
#pragma once

#include <windows.h>

constexpr RECT ListedPlace = {0, 0, 600, 220};

inline HWND MakeForm() {
    RECT size = ListedPlace;
    AdjustWindowRect(&size, WS_OVERLAPPEDWINDOW, FALSE);
    return CreateWindowExW(0, L"STATIC", L"Listing", WS_OVERLAPPEDWINDOW, 0, 0, size.right - size.left,
                           size.bottom - size.top, nullptr, nullptr, nullptr, nullptr);
}

inline void ShowForm(HWND form) {
    ShowWindow(form, SW_SHOW);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
}

// Pictures of windows.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/mDeclares.h"

namespace vantik {

struct Snapshot {
    int Width = 0;
    int Height = 0;
    std::vector<std::uint32_t> Pixels; // 0x00RRGGBB, top row first

    std::uint32_t At(int x, int y) const { return Pixels.at(static_cast<std::size_t>(y * Width + x)); }
    bool operator==(const Snapshot&) const = default;
};

// What the client area of the window shows now, its child windows included. Pending painting is done first.
Snapshot TakeSnapshot(HWND window);

// Throws HostError when the file cannot be written.
void SavePng(const Snapshot& snapshot, const std::wstring& path);

} // namespace vantik

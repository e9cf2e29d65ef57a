// Parts of pictures.
#pragma once

#include <algorithm>

#include "host/Snapshot.h"

namespace vantik {

// As much of the place as lies in the picture.
inline Snapshot CutOut(const Snapshot& picture, const RECT& place) {
    const int left = std::max<int>(place.left, 0), right = std::min<int>(place.right, picture.Width);
    const int top = std::max<int>(place.top, 0), bottom = std::min<int>(place.bottom, picture.Height);
    Snapshot part = {std::max(right - left, 0), std::max(bottom - top, 0), {}};
    for (int y = top; y < bottom; ++y)
        for (int x = left; x < right; ++x) part.Pixels.push_back(picture.At(x, y));
    if (part.Pixels.empty()) part = {};
    return part;
}

inline void Paste(Snapshot& picture, const Snapshot& part, int left, int top) {
    for (int y = std::max(-top, 0); y < std::min(part.Height, picture.Height - top); ++y)
        for (int x = std::max(-left, 0); x < std::min(part.Width, picture.Width - left); ++x)
            picture.Pixels[static_cast<std::size_t>((top + y) * picture.Width + left + x)] = part.At(x, y);
}

} // namespace vantik

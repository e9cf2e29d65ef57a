#include "ole/accessible/TipPlace.h"

#include <algorithm>

namespace vantik {

namespace {

constexpr LONG Gap = 2;

// Before the first pixel or behind the last one, wherever there is room; at least inside the screen.
LONG Beyond(LONG first, LONG last, LONG length, bool before, LONG screenFirst, LONG screenLast) noexcept {
    const LONG inFront = first - Gap - length, behind = last + Gap;
    const bool fitsInFront = inFront >= screenFirst, fitsBehind = behind + length <= screenLast;
    const bool goesBefore = before ? fitsInFront || !fitsBehind : fitsInFront && !fitsBehind;
    return std::max(screenFirst, std::min(goesBefore ? inFront : behind, screenLast - length));
}

// From there on, as far as the screen reaches.
LONG Along(LONG first, LONG length, LONG screenFirst, LONG screenLast) noexcept {
    return std::max(screenFirst, std::min(first, screenLast - length));
}

} // namespace

POINT TipPlace(const RECT& part, const RECT& pointer, SIZE tip, std::int32_t side,
               const RECT& screen) noexcept {
    RECT kept = {};
    UnionRect(&kept, &part, &pointer);
    const bool before = side != WindowBottom && side != WindowRight;
    if (side == WindowLeft || side == WindowRight)
        return {Beyond(kept.left, kept.right, tip.cx, before, screen.left, screen.right),
                Along(part.top, tip.cy, screen.top, screen.bottom)};
    return {Along(part.left, tip.cx, screen.left, screen.right),
            Beyond(kept.top, kept.bottom, tip.cy, before, screen.top, screen.bottom)};
}

} // namespace vantik

#include "tools/skinpreview/TagPlaces.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace vantik {

namespace {

constexpr LONG Step = 3;       // between the places that are tried
constexpr LONG Farthest = 160; // from what a tag belongs to
constexpr LONG Air = 2;        // around a tag
constexpr LONG Never = std::numeric_limits<LONG>::max();

LONG AreaOf(const RECT& rect) noexcept { return (rect.right - rect.left) * (rect.bottom - rect.top); }

LONG SharedArea(const RECT& a, const RECT& b) noexcept {
    RECT both;
    return IntersectRect(&both, &a, &b) ? AreaOf(both) : 0;
}

bool IsInside(const RECT& inner, const RECT& outer) noexcept {
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

LONG DistanceBetween(const RECT& a, const RECT& b) noexcept {
    const LONG x = std::max({a.left - b.right, b.left - a.right, 0L});
    const LONG y = std::max({a.top - b.bottom, b.top - a.bottom, 0L});
    return x + y;
}

// How far a tag stands off the middle of its side; above and below is better than beside.
LONG OffsetOf(const RECT& place, const RECT& of) noexcept {
    constexpr LONG Beside = 24;
    const bool isAboveOrBelow = place.bottom <= of.top || place.top >= of.bottom;
    return isAboveOrBelow ? std::abs(place.left + place.right - of.left - of.right) / 2
                          : std::abs(place.top + place.bottom - of.top - of.bottom) / 2 + Beside;
}

class TagPlacing {
public:
    TagPlacing(const std::vector<Tag>& tags, const RECT& room) : tags_(tags), room_(room) {}

    std::vector<RECT> Place() {
        for (const Tag& tag : tags_) places_.push_back(BestPlace(tag));
        return places_;
    }

private:
    // Hiding a pixel of a rectangle is as bad as standing half a pixel further away.
    LONG CostOf(const Tag& tag, const RECT& place) const {
        RECT wide = place;
        InflateRect(&wide, Air, Air);
        if (!IsInside(place, room_)) return Never;
        for (const RECT& taken : places_)
            if (SharedArea(wide, taken)) return Never;
        LONG cost = 2 * DistanceBetween(place, tag.Of) + OffsetOf(place, tag.Of) / 4;
        for (const Tag& other : tags_) cost += SharedArea(wide, other.Of);
        return cost;
    }

    RECT BestPlace(const Tag& tag) const {
        RECT best = {tag.Of.left, tag.Of.top, tag.Of.left + tag.Size.cx, tag.Of.top + tag.Size.cy};
        LONG least = Never;
        for (LONG y = tag.Of.top - tag.Size.cy - Farthest; y < tag.Of.bottom + Farthest; y += Step) {
            for (LONG x = tag.Of.left - tag.Size.cx - Farthest; x < tag.Of.right + Farthest; x += Step) {
                const RECT place = {x, y, x + tag.Size.cx, y + tag.Size.cy};
                const LONG cost = CostOf(tag, place);
                if (cost >= least) continue;
                least = cost;
                best = place;
            }
        }
        return best;
    }

    const std::vector<Tag>& tags_;
    RECT room_;
    std::vector<RECT> places_;
};

} // namespace

std::vector<RECT> PlaceTags(const std::vector<Tag>& tags, const RECT& room) {
    return TagPlacing(tags, room).Place();
}

} // namespace vantik

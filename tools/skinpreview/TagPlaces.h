// Where the numbers of rectangles stand, so that they hide each other never and the rectangles hardly.
#pragma once

#include <vector>

#include "platform/mDeclares.h"

namespace vantik {

struct Tag {
    RECT Of; // what it belongs to
    SIZE Size;
};

// One place for each, inside the room as long as there is any.
std::vector<RECT> PlaceTags(const std::vector<Tag>& tags, const RECT& room);

} // namespace vantik

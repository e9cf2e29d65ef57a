// Where the names of rectangles stand so that they hide neither each other nor much else.
#pragma once

#include <cstdint>
#include <vector>

#include "tools/skinview/model/Piece.h"
#include "tools/skinview/model/ZoomView.h"

namespace vantik {

struct LabelWish {
    PixelBox Rectangle; // points of the view
    ViewSize Full;      // of the whole name
    ViewSize Short;     // of the number
};

struct Label {
    enum class Kind { None, Short, Full };
    Label::Kind Kind = Kind::None;
    PixelBox Place;
};

// One for each wish. The smaller a rectangle, the sooner it is served: a large one has room elsewhere. Whole names stand
// inside, and outside where there is room when all have at least their numbers.
std::vector<Label> PlaceLabels(const std::vector<LabelWish>& wishes);

} // namespace vantik

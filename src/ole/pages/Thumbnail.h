// A small picture of a skin: what two bars look like with it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/mDeclares.h"

namespace vantik {

struct Thumbnail {
    SIZE Size = {};
    std::vector<std::uint32_t> Rows; // from the top, 0xRRGGBB
};

// At most so large, and no larger than the skin is. Without rows where the skin cannot be loaded.
Thumbnail ThumbnailOf(const std::u16string& folder, SIZE most);

// Every pixel of the smaller picture is the mean of those that it stands for.
Thumbnail Shrunk(const Thumbnail& picture, SIZE size);

} // namespace vantik

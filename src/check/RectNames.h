// What the rectangles of a skin are called.
#pragma once

#include <cstdint>
#include <string_view>

namespace vantik {

// "FillPic0" for 2 and so on; empty for 23 to 25, which nothing draws.
std::string_view RectName(std::int32_t index) noexcept;

} // namespace vantik

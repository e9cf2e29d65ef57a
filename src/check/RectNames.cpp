#include "check/RectNames.h"

#include <iterator>

namespace vantik {

namespace {

constexpr std::string_view Names[] = {
    "TabRect",  "BRect",    "FillPic0",    "FillPic1",     "FillPic2",    "LeftPic0",
    "LeftPic1", "LeftPic2", "RightPic0",   "RightPic1",    "RightPic2",   "Line0",
    "Line1",    "Line2",    "RLeftTopPic", "RRightTopPic", "RLeftBottom", "RRightBottom",
    "FBackPic", "FTopLine", "FBottomLine", "FLeftLine",    "FRightLine"};

} // namespace

std::string_view RectName(std::int32_t index) noexcept {
    const bool isNamed = index >= 0 && index < static_cast<std::int32_t>(std::size(Names));
    return isNamed ? Names[index] : std::string_view();
}

} // namespace vantik

// The public enumerations. Setters store any 32-bit value, so none of these may be switched over without a default.
#pragma once

#include <cstdint>

namespace vantik {

// Alignment of the caption on a bar; the values are the platform's DT_LEFT, DT_CENTER and DT_RIGHT.
enum FontPos : std::int32_t { AlignLeft = 0, AlignMiddle = 1, AlignRight = 2 };

// Where the row of bars sits along its side.
enum dTabBarPos : std::int32_t { TabLeft = 0, TabMiddle = 1, TabRight = 2, TabCustom = 3 };

// Which side of the control carries the bars.
enum dTabPos : std::int32_t { WindowLeft = 0, WindowRight = 1, Windowtop = 2, WindowBottom = 3 };

// The look of one bar; it indexes the skin's piece variants.
enum BarState : std::uint8_t { BarNormal = 0, BarHover = 1, BarActive = 2 };

// Booleans crossing the public interfaces.
using Boolean = std::int16_t;
inline constexpr Boolean True = -1;
inline constexpr Boolean False = 0;

} // namespace vantik

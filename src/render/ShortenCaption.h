// Captions that fit their bars.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/Text.h"

namespace vantik {

// Widths are counted in units of the letter "A": a character that the ANSI code page writes in two bytes counts two,
// any other one. A caption of at most `budget` units stays whole; a longer one is cut to what fits together with an
// appended "...". Where not even the dots fit, as many of them as do. Never cuts a surrogate pair in half.
std::u16string ShortenCaption(std::u16string_view caption, std::int32_t budget,
                              bool (*isDoubleByte)(char16_t) noexcept = IsDoubleByte);

} // namespace vantik

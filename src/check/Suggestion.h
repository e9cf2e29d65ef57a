// What somebody may have meant who mistyped a word.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace vantik {

// How many letters were typed wrongly, left out, added, or swapped with the next one.
std::size_t EditDistance(std::u16string_view a, std::u16string_view b);

// The nearest of the words without regard to case and blanks around the text; empty when none of them is near: up to one
// mistake in every three letters.
std::u16string_view Nearest(std::u16string_view text, std::span<const std::u16string_view> words);

} // namespace vantik

// Text to whole numbers as the host language converts it.
#pragma once

#include <cstdint>
#include <string_view>

namespace vantik {

// Accepts surrounding spaces, a sign, a decimal fraction (rounded half to even), an exponent, and &H hexadecimal, whose
// digits are the bit pattern of the result. TypeMismatch for any other text, Overflow for a number that does not fit; what they say quotes the text.
std::int16_t ToInteger16(std::u16string_view text);
std::int32_t ToInteger32(std::u16string_view text);

} // namespace vantik

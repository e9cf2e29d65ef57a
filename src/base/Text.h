// Text as the portable rings know it: UTF-16, trimmed at spaces only, upper-cased by the platform's own table.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vantik {

// Without leading and trailing spaces (code 32 only; tabs stay).
std::u16string_view TrimSpaces(std::u16string_view text) noexcept;

// Plain decimal text, "-" in front of negative numbers.
std::u16string DecimalText(std::int32_t value);

std::u16string UpperCase(std::u16string_view text);
bool EqualIgnoringCase(std::u16string_view a, std::u16string_view b);

// The one door for bytes in the system's ANSI code page.
std::u16string DecodeAnsi(std::string_view bytes);

// Whether the ANSI code page writes the character in two bytes.
bool IsDoubleByte(char16_t character) noexcept;

} // namespace vantik

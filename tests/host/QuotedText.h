// Text as it stands in a file of lines: in quotation marks, with the line ends and marks inside it written out.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace vantik {

std::wstring Quoted(std::wstring_view text);

// Of a text that begins with a quotation mark. Throws std::invalid_argument, which says what is wrong.
std::wstring Unquoted(std::wstring_view quoted);

// Without the blanks around it.
std::wstring_view Trimmed(std::wstring_view text);

} // namespace vantik

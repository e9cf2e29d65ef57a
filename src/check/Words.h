// Pieces of what faults say.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/RunTimeError.h"

namespace vantik {

// "The control raises error 13 (Type mismatch)"
std::string RaisedError(RunTimeErrorNumber number);

// UTF-8 of bytes in the system's code page.
std::string FromAnsi(std::string_view bytes);

// The same between quotation marks, shortened where it is long.
std::string Quote(std::string_view bytes);

// "rectangle 5 (LeftPic0)"
std::string RectText(std::int32_t rect);

} // namespace vantik

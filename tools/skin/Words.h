// Pieces of what faults say.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/RunTimeError.h"

namespace vantik {

// "The control raises error 13 (Type mismatch)"
std::string RaisedError(RunTimeErrorNumber number);

// Between quotation marks, of bytes in the system's code page.
std::string Quote(std::string_view bytes);

// "rectangle 5 (LeftPic0)"
std::string RectText(std::int32_t rect);

} // namespace vantik

// Whether an editor has saved text in UTF-8, where the control reads the system's code page.
#pragma once

#include <cstddef>
#include <string_view>

namespace vantik {

// Of the first byte beyond ASCII; npos where there is none.
std::size_t FirstBeyondAscii(std::string_view bytes) noexcept;

bool IsUtf8(std::string_view bytes) noexcept;

} // namespace vantik

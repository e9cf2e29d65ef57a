// Rectangles as short strings.
#pragma once

#include <string>

#include "model/LayoutRect.h"

namespace vantik::test {

inline std::string Text(const LayoutRect& r) {
    const auto n = [](std::int32_t value) { return std::to_string(value); };
    return n(r.Left) + "," + n(r.Top) + "-" + n(r.Right) + "," + n(r.Bottom);
}

} // namespace vantik::test

// The built control on a form, early bound.
#pragma once

#include <memory>

#include "Subject.h"

namespace vantik::bench {

enum class Side : std::uint8_t { Top, Left };

std::unique_ptr<Subject> MakeFrameTab(Side side);

} // namespace vantik::bench

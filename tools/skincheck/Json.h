// Faults for other programs to read.
#pragma once

#include <span>
#include <string>

#include "check/Fault.h"

namespace vantik {

// An array of objects.
std::string ToJson(std::span<const Fault> faults);

} // namespace vantik

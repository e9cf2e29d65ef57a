// What the control's own decoder makes of an icon's file.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "base/RunTimeError.h"

namespace vantik {

struct CheckedPng {
    std::int32_t Width = 0, Height = 0;
    std::string Trouble; // why nothing can be drawn of it; empty when all is well

    // What the definition raises for it when it is a button's picture, whose size is read with the definition.
    std::optional<RunTimeErrorNumber> SizeError;
};

CheckedPng CheckPng(std::span<const std::uint8_t> file);

} // namespace vantik

// The pixels of a skin's bitmap, as the control gets them.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "host/Snapshot.h"

namespace vantik {

// Empty for bytes that are no picture, by the control's own measure.
std::optional<Snapshot> ReadPicture(std::span<const std::uint8_t> file);

} // namespace vantik

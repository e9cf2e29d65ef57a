// What the engine is told of the pointer's way.
//
// The engine goes by its last position alone, and counts the strip's far edges as part of it. The system reports where
// the pointer is, now and then. Between the two stand these.
#pragma once

#include <optional>

#include "model/ControlState.h"
#include "render/DecorationGeometry.h"

namespace vantik {

// The tab whose bar is painted at the pixel. Like the engine, these raise where the layout cannot be counted with.
std::optional<std::int16_t> TabAt(const ControlState& control, PixelPoint pixel);

// The position to pass on: one on the strip but on no bar becomes one outside.
PixelPoint OnBarOrOutside(const ControlState& control, PixelPoint pixel);

// Whether the position lies on the close button of a bar that the pointer was not over yet, or left without the engine's
// seeing it off that bar's close button.
bool JumpsOntoCloseButton(const ControlState& control, PixelPoint pixel);

// A pixel of the bar under the position that is on no close button; nothing for a bar that its close button covers.
std::optional<PixelPoint> BesideCloseButton(const ControlState& control, PixelPoint pixel);

} // namespace vantik

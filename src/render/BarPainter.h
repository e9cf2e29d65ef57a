// One bar: its background from the skin's pieces, its caption, its icon, its close button.
#pragma once

#include <cstdint>

#include "model/ControlState.h"
#include "platform/UserControl.h"
#include "render/BarDecorations.h"
#include "render/Surfaces.h"

namespace vantik {

class BarPainter {
public:
    BarPainter(UserControl& host, const ControlState& control, Surfaces& surfaces,
               BarDecorations& decorations) noexcept
        : host_(host), control_(control), surfaces_(surfaces), decorations_(decorations) {}

    // Over the clean underlay, inside the row. SubscriptOutOfRange for a tab that has no record or a state
    // that has no pieces; Overflow; what the decorations raise.
    void DrawBar(std::int16_t index, std::uint8_t state);

private:
    void DrawBarBackground(std::int16_t index, std::uint8_t state);

    UserControl& host_;
    const ControlState& control_;
    Surfaces& surfaces_;
    BarDecorations& decorations_;
};

} // namespace vantik

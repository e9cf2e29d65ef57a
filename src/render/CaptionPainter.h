// The caption of one bar.
//
// Its room is the bar, less the close button and what lies beyond it where one is shown. In the room the caption is
// shortened, aligned by CaptionPos and moved by CaptionXjust and CaptionYjust; nothing is written outside.
// Beside the strip captions run from bottom to top, so that AlignLeft starts at the room's lower end.
#pragma once

#include <cstdint>

#include "model/ControlState.h"
#include "platform/UserControl.h"
#include "render/BarDecorations.h"
#include "render/Surfaces.h"

namespace vantik {

class CaptionPainter {
public:
    CaptionPainter(UserControl& host, const ControlState& control, Surfaces& surfaces,
                   BarDecorations& decorations) noexcept
        : host_(host), control_(control), surfaces_(surfaces), decorations_(decorations) {}

    void DrawCaption(std::int16_t index, std::uint8_t state);

private:
    void DrawHorizontal(HDC surface, const LayoutRect& room);
    void DrawVertical(HDC surface, const LayoutRect& room, std::int16_t index, std::uint8_t state);
    std::int32_t Budget(HDC surface, std::int16_t index, std::uint8_t state) const;
    COLORREF ColourOf(std::int16_t index) const;
    OwnedFont MakeTurnedFont(bool heavy);

    UserControl& host_;
    const ControlState& control_;
    Surfaces& surfaces_;
    BarDecorations& decorations_;
};

} // namespace vantik

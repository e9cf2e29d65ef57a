// The caption of one bar.
//
// It is shortened, aligned by CaptionPos in the bar's rectangle and moved by CaptionXjust and CaptionYjust. Where it would
// come to lie under a shown close button or beyond it, it steps aside before it is moved; nothing is written there.
// Beside the strip captions run from bottom to top, so that AlignLeft starts at the bar's lower end.
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

    // Whether all of it would be seen: neither shortened nor cut off. Draws nothing. Raises what drawing raises, and
    // OutOfMemory.
    bool IsWhole(std::int16_t index, std::uint8_t state);

private:
    // Where a caption is written: the bar, and what a close button leaves of it.
    struct Place {
        LayoutRect Bar;
        LayoutRect Room;
    };

    struct Writing {
        HDC Surface;
        const std::u16string& Text;
        bool IsFree = false; // of all that cuts off: beyond its room, too
    };

    Place PlaceOf(std::int32_t slot) const;
    void TakeFont(HDC surface) const noexcept;
    void Write(const Writing& writing, const Place& place, std::int16_t index, std::uint8_t state);
    void DrawHorizontal(const Writing& writing, const Place& place);
    void DrawVertical(const Writing& writing, const Place& place, std::int16_t index, std::uint8_t state);
    std::int32_t Budget(HDC surface, std::int16_t index, std::uint8_t state) const;
    CaptionKind KindOf(std::int16_t index) const;
    void SetColours(HDC surface, CaptionKind kind) const;
    OwnedFont MakeTurnedFont(bool heavy);

    UserControl& host_;
    const ControlState& control_;
    Surfaces& surfaces_;
    BarDecorations& decorations_;
};

} // namespace vantik

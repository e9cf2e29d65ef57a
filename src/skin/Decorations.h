// What the skin's PNG icons add to the bars: each tab's icon and close button, and the buttons beside the row.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "model/ControlState.h"
#include "platform/UserControl.h"
#include "render/BarDecorations.h"
#include "render/DecorationGeometry.h"
#include "render/Surfaces.h"
#include "skin/IconPainter.h"
#include "skin/StateCodes.h"

namespace vantik {

class Decorations final : public BarDecorations {
public:
    Decorations(UserControl& host, ControlState& state, Surfaces& surfaces) noexcept
        : host_(host), state_(state), surfaces_(surfaces), icons_(host, state) {}

    // Parts of a bar's painting. SubscriptOutOfRange for a look above 2 and for a tab that has no record; Overflow.
    void DrawTabIcon(std::int16_t index, std::uint8_t state) override;
    void DrawCloseButton(std::int16_t index, std::uint8_t& state, std::uint8_t& flag) override;
    std::int32_t TabIconWidth(std::int16_t index) override;

    // The close button alone, in another look than the bar was painted with, as the pointer comes and goes; mixed over
    // the bar as it was without a button, and shown at once. A bar that is not on the surface draws nothing.
    void RedrawCloseButton(std::int16_t index, std::uint8_t& state, std::uint8_t& flag);

    // Deletes the close button's cached pictures, whose place has changed.
    void ReleaseCloseButton() noexcept { icons_.Release(state_.SkinIcons.DeleteButtonIcon); }

    // One of the buttons beside the row, over what lies under it, shown at once. True when it was drawn pressed: it was
    // to be, has an icon and is not greyed. Overflow where the tabs behind the row cannot be counted.
    bool DrawPrevButton(std::int32_t x, std::int32_t y, Boolean pressed);
    bool DrawNextButton(std::int32_t x, std::int32_t y, Boolean pressed);
    bool DrawMenuButton(std::int32_t x, std::int32_t y, Boolean pressed);

    // All three, released. The window shows them when it paints next.
    void DrawNavButtons() override;

    // Releases what the end of the control releases; nothing is drawn afterwards.
    void Terminate() noexcept { icons_.Terminate(); }

private:
    static constexpr std::int16_t NoTab = -1;

    // The bar under a close button, as it was before the button was drawn.
    struct Underlay {
        std::int16_t Index = NoTab;
        PixelBlock Pixels;
    };

    PixelBlock DrawOnBar(std::int16_t index, std::int16_t icon, std::uint8_t slot, IconStyle style,
                         const LayoutRect& place, const IconPainter::Look& look);
    std::uint8_t TakeCloseButtonSlot(std::uint8_t& state, std::uint8_t flag);
    Underlay* UnderlayOf(std::int16_t index);

    IconStyle PrevStyle(Boolean pressed) const noexcept;
    IconStyle NextStyle(Boolean pressed) const;
    static IconStyle MenuStyle(Boolean pressed) noexcept;
    bool DrawButton(std::int16_t role, std::int32_t x, std::int32_t y, IconStyle style);
    bool ShowButton(bool pressed);
    void EraseButtonsThatMoveTo(const ButtonRects& rects);

    UserControl& host_;
    ControlState& state_;
    Surfaces& surfaces_;
    IconPainter icons_;
    std::vector<Underlay> underlays_;         // by slot, for the bars that were painted last
    std::optional<ButtonRects> shownButtons_; // where they were drawn last
};

} // namespace vantik

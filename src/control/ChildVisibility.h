// Which child controls show: a child's tab is encoded in its horizontal position alone.
//
// With the active tab a, a child of tab k stands at its design position + (a - k) x TabOffSet, so that only the active
// tab's children stand in view. TabOffSet has to exceed the width of any child's visible range of positions.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "model/ControlState.h"
#include "platform/UserControl.h"

namespace vantik {

class ChildVisibility {
    enum class Knowledge : std::uint8_t { LookEachTime, NotLookedYet, NoChildren };

public:
    ChildVisibility(UserControl& host, const ControlState& state) : host_(host), state_(state) {}

    // While this lives, no children found means that there are none: an operation that moves them several times does
    // not look for them again where there is nothing to move.
    class [[nodiscard]] OneOperation {
    public:
        explicit OneOperation(ChildVisibility& children) noexcept
            : children_(children), outer_(std::exchange(children.knowledge_, Knowledge::NotLookedYet)) {}
        ~OneOperation() { children_.knowledge_ = outer_; }
        OneOperation(const OneOperation&) = delete;
        OneOperation& operator=(const OneOperation&) = delete;

    private:
        ChildVisibility& children_;
        Knowledge outer_;
    };

    // Moves every child for a switch from ActiveTab to the index, and those named in FixOcxList back again. Does
    // nothing for a tab that is not enabled; does not change ActiveTab. SubscriptOutOfRange outside the tab list.
    void ShowTabControls(std::int16_t newIndex);

    // Renumbering, for a position rule relative to tab 0: tab 0 must be active.
    void MakeRoomAfter(std::int16_t index);
    void CloseGapOf(std::int16_t index);

    // Shows or hides what stands in view, fixed children included.
    void SetShownVisible(Boolean visible);

private:
    std::vector<std::unique_ptr<ChildControl>> Children();
    std::int32_t TabOf(double left) const;
    std::int32_t DistanceTo(std::int16_t index) const;
    void MoveFixedBack(std::int32_t delta, std::vector<std::unique_ptr<ChildControl>>& children);

    UserControl& host_;
    const ControlState& state_;
    // Split from FixOcxList on a switch and only when that is not blank, so names survive the list's being emptied.
    std::vector<std::u16string> fixedControlNames_ = {u""};
    Knowledge knowledge_ = Knowledge::LookEachTime;
};

} // namespace vantik

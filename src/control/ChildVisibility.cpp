#include "control/ChildVisibility.h"

#include <cstdlib>

#include "base/Checked.h"
#include "base/ErrorText.h"
#include "base/Rounding.h"
#include "base/Text.h"

namespace vantik {

namespace {

std::vector<std::u16string> SplitAtCommas(std::u16string_view list) {
    std::vector<std::u16string> names;
    for (std::size_t comma; (comma = list.find(u',')) != std::u16string_view::npos;
         list.remove_prefix(comma + 1))
        names.emplace_back(list.substr(0, comma));
    names.emplace_back(list);
    return names;
}

void Move(ChildControl& child, double delta) { child.Left(child.Left() + delta); }

} // namespace

std::vector<std::unique_ptr<ChildControl>> ChildVisibility::Children() {
    if (knowledge_ == Knowledge::NoChildren) return {};
    auto children = host_.ChildControls();
    if (children.empty() && knowledge_ == Knowledge::NotLookedYet) knowledge_ = Knowledge::NoChildren;
    return children;
}

// A child at exactly 0 counts for tab 1: the rule asks for positions greater than 0.
std::int32_t ChildVisibility::TabOf(double left) const {
    const std::int32_t offset = state_.Properties.TabOffSet;
    if (offset == 0) Raise(RunTimeErrorNumber::DivisionByZero, u"TabOffSet is 0: no child's tab can be told");
    const std::int64_t distance = std::llabs(RoundHalfToEven(left));
    const auto tabs = Narrow<std::int32_t>(distance / offset);
    return Checked(tabs) + (left > 0 ? 0 : 1);
}

void ChildVisibility::ShowTabControls(std::int16_t newIndex) {
    if (!state_.Tabs(newIndex).Enable) return;
    const PropertyValues& properties = state_.Properties;
    const std::int32_t delta = DistanceTo(newIndex);
    auto children = Children();
    for (const auto& child : children) Move(*child, delta);
    const auto fixed = TrimSpaces(properties.FixOcxList);
    if (!fixed.empty()) fixedControlNames_ = SplitAtCommas(fixed);
    MoveFixedBack(delta, children);
}

std::int32_t ChildVisibility::DistanceTo(std::int16_t index) const {
    const PropertyValues& p = state_.Properties;
    return Explaining([&] { return Checked(p.TabOffSet) * Subtract16(index, p.ActiveTab); },
                      [&](const RunTimeError& error) {
                          return ErrorText(u"No way for the children from tab ", p.ActiveTab, u" to tab ",
                                           index, u" with TabOffSet = ", p.TabOffSet, u": ",
                                           error.Description());
                      });
}

void ChildVisibility::MoveFixedBack(std::int32_t delta,
                                    std::vector<std::unique_ptr<ChildControl>>& children) {
    const auto names = fixedControlNames_; // moving a child may run host code that switches again
    for (const auto& name : names) {
        if (TrimSpaces(name).empty()) continue;
        for (const auto& child : children)
            // Untrimmed: an entry that begins with a blank names no control.
            if (EqualIgnoringCase(child->Name(), name)) Move(*child, -double(delta));
    }
}

void ChildVisibility::MakeRoomAfter(std::int16_t index) {
    for (const auto& child : Children())
        if (TabOf(child->Left()) > index) Move(*child, -double(state_.Properties.TabOffSet));
}

void ChildVisibility::CloseGapOf(std::int16_t index) {
    const Checked offset = state_.Properties.TabOffSet;
    for (const auto& child : Children()) {
        const std::int32_t tab = TabOf(child->Left());
        // The removed tab's children are parked beyond the positions of all tabs.
        if (tab == index)
            Move(*child, offset * state_.Properties.TabCount);
        else if (tab > index)
            Move(*child, offset);
    }
}

void ChildVisibility::SetShownVisible(Boolean visible) {
    for (const auto& child : Children())
        if (child->Left() > 0) child->Visible(visible);
}

} // namespace vantik

// How the parts hang together, and where they lie: the row has the tabs, the buttons beside them and the page; a tab has
// its close button. All of these may raise what painting raises.
#pragma once

#include <array>
#include <optional>

#include "model/ControlState.h"
#include "ole/accessible/Part.h"
#include "render/DecorationGeometry.h"

namespace vantik {

// The children of the row that follow its tabs, where they are there.
inline constexpr std::array BehindTabs = {PartKind::PreviousButton, PartKind::NextButton,
                                          PartKind::MenuButton, PartKind::Page};

// Whether there is such a part now. The page is there when a tab is active.
bool Exists(const ControlState& control, const Part& part);

// Of every part but the row.
Part ParentOf(const Part& part) noexcept;

std::int32_t CountChildren(const ControlState& control, const Part& part);
std::optional<Part> ChildAt(const ControlState& control, const Part& part, std::int32_t index);
// Among the children of its parent.
std::int32_t IndexOf(const ControlState& control, const Part& part);

// In pixels of the control; Right and Bottom are outside. Empty for what is scrolled away.
LayoutRect AreaOf(const ControlState& control, const Part& part);

// Of all that may follow the tabs; nothing for what is not there.
std::array<std::optional<LayoutRect>, BehindTabs.size()> AreasBehindTabs(const ControlState& control);

// The part itself or that child of it which has the pixel; nothing where it does not reach.
std::optional<Part> PartAt(const ControlState& control, const Part& part, PixelPoint pixel);

enum class Direction : std::uint8_t { Left, Right, Up, Down };

// The nearest one with the same parent.
std::optional<Part> Neighbour(const ControlState& control, const Part& part, Direction direction);

} // namespace vantik

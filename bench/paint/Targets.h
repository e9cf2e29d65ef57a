// What the figures are to reach.
#pragma once

#include "Measure.h"

namespace vantik::bench {

namespace rows {

inline constexpr std::string_view Insert = "insert all";
inline constexpr std::string_view Remove = "remove all";
inline constexpr std::string_view FullRepaint = "full repaint";
inline constexpr std::string_view Bars = "bars only";
inline constexpr std::string_view WindowAlone = "the window alone";
inline constexpr std::string_view PointerOntoBar = "pointer onto another bar";
inline constexpr std::string_view PointerWithinBar = "pointer within a bar";
inline constexpr std::string_view PointerOverPage = "pointer over the page";

inline constexpr std::string_view FullRepaintOfOne = "full repaint, one control";
inline constexpr std::string_view BarsOfOne = "bars only, one control";

} // namespace rows

// The columns.
enum SubjectIndex : std::size_t { Top, Left, PlainHost, Platform };
enum HiddenIndex : std::size_t { FewTabs, ManyTabs };

// One control, by turns with few tabs and with many: the hidden ones must cost no repaint anything.
inline constexpr int FewTabsCount = 100, ManyTabsCount = 10000;

// Prints each target beside its figure; leaves out what was not measured.
void PrintTargets(const Table& table, const Table& hidden);

} // namespace vantik::bench

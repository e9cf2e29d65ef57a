// What the figures are to reach.
#pragma once

#include "Measure.h"

namespace vantik::bench {

namespace rows {

inline constexpr std::string_view Insert = "insert all";
inline constexpr std::string_view Remove = "remove all";
inline constexpr std::string_view FullRepaint = "full repaint";
inline constexpr std::string_view Bars = "bars only";
inline constexpr std::string_view PointerOntoBar = "pointer onto another bar";
inline constexpr std::string_view PointerWithinBar = "pointer within a bar";
inline constexpr std::string_view PointerOverPage = "pointer over the page";

} // namespace rows

// The columns.
enum SubjectIndex : std::size_t { Top, Left, PlainHost, Platform };

// Prints each target beside its figure; leaves out what was not measured.
void PrintTargets(const Table& table);

} // namespace vantik::bench

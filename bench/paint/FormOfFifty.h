// A form with fifty tab controls of eight tabs each, opened one control after the other: what a further one costs when
// all have the same skin, when each has a copy of it in a folder of its own, and what the platform's costs.
#pragma once

namespace vantik::bench {

inline constexpr int ControlsOfForm = 50, TabsOfEach = 8;

// Prints a table and the targets beside their figures.
void MeasureFormOfFifty();

} // namespace vantik::bench

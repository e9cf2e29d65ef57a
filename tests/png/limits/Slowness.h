// Limits in seconds mean a machine. Others, and busy ones, get as much more as they take for other work of that kind.
#pragma once

namespace vantik {

// How many times as long as on that machine, now; 1 at least.
double Slowness();

} // namespace vantik

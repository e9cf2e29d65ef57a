// What holds for every control between two calls, whatever was done to it.
#pragma once

namespace vantik {

struct Place;

// Throw HostError where it does not hold.
void CheckControl(const Place& place);
void CheckProcess();

} // namespace vantik

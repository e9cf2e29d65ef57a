// The windows on pages that do not show are no stops of the key Tab: what makes them so is taken from them while they stand
// out of sight, and given back when they return, when they are taken off the control, and when it goes.
//
// What was taken is kept with the window itself.
#pragma once

#include <vector>

#include "platform/mDeclares.h"

namespace vantik {

class ParkedStops {
public:
    ParkedStops() noexcept = default;
    ~ParkedStops() { GiveBack(); }
    ParkedStops(const ParkedStops&) = delete;
    ParkedStops& operator=(const ParkedStops&) = delete;

    // By where the windows stand now.
    void Arrange(HWND control);
    void GiveBack() noexcept;

private:
    void ForgetThoseElsewhere(HWND control) noexcept;
    void Park(HWND child);

    std::vector<HWND> parked_; // some may have gone by now
};

} // namespace vantik

// Everything that a host and a user can do to a control, drawn by chance.
#pragma once

#include <cstdint>
#include <random>

#include "tests/control/DrivenControl.h"

namespace vantik::test {

// One action with all its arguments, so that it can be done to several controls alike.
class RandomAction {
public:
    explicit RandomAction(std::mt19937& chance);
    void DoTo(DrivenControl& control) const;

    // The number of kinds, for messages.
    std::uint32_t Kind() const noexcept { return kind_; }

private:
    void Operate(DrivenControl& control) const;
    void Point(DrivenControl& control) const;
    void LetProperty(VantikFrameTab& control) const;

    std::uint32_t kind_, choice_;
    std::int16_t index_;
    std::int32_t x_, y_;
};

} // namespace vantik::test

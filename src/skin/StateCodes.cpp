#include "skin/StateCodes.h"

#include "base/RunTimeError.h"

namespace vantik {

namespace {

constexpr std::uint8_t Looks = 3;

// Each look has two slots in a row.
StateCode CodeOf(std::uint8_t state, char16_t second, std::uint8_t which) {
    if (state >= Looks) Raise(RunTimeErrorNumber::SubscriptOutOfRange);
    const auto first = static_cast<char16_t>(u'0' + state);
    return {{first, second}, static_cast<std::uint8_t>(2 * state + which)};
}

} // namespace

StateCode TabIconCode(std::uint8_t state, bool enabled) {
    return enabled ? CodeOf(state, u'0', 0) : CodeOf(state, u'3', 1);
}

StateCode CloseButtonCode(std::uint8_t state, std::uint8_t flag) {
    return flag == FlagHovered ? CodeOf(state, u'1', 1) : CodeOf(state, u'0', 0);
}

} // namespace vantik

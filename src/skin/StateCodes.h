// The cache slots of a decoration's pictures and the codes that they are known by.
#pragma once

#include <cstdint>
#include <string>

namespace vantik {

struct StateCode {
    std::u16string Code; // the look's digit and a digit of the decoration's own
    std::uint8_t Slot;   // 0 to 5
};

inline constexpr std::uint8_t FlagHovered = 3; // the Flag argument that lights a close button up

// "00" to "20" for an enabled tab, "03" to "23" for a disabled one. SubscriptOutOfRange for a look above 2.
StateCode TabIconCode(std::uint8_t state, bool enabled);

// "01" to "21" when the flag says hovered, else "00" to "20". SubscriptOutOfRange for a look above 2.
StateCode CloseButtonCode(std::uint8_t state, std::uint8_t flag);

} // namespace vantik

// Which of the skin's icons a tab means.
#pragma once

#include <cstdint>
#include <string_view>

#include "model/Skin.h"

namespace vantik {

inline constexpr std::int16_t NoIcon = -1;

// The newest icon of that name; else, for a whole number within the list, the icon at that position; else NoIcon, as for
// "-1" and "" always.
std::int16_t ResolveIcon(const SkinIcons& icons, std::u16string_view key) noexcept;

} // namespace vantik

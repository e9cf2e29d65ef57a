#include "skin/IconReference.h"

namespace vantik {

namespace {

// A number with more digits than a position can have is none.
std::int16_t PositionOf(std::u16string_view digits) noexcept {
    if (digits.size() > 5) return NoIcon;
    std::int32_t position = 0;
    for (const char16_t c : digits) {
        if (c < u'0' || c > u'9') return NoIcon;
        position = position * 10 + (c - u'0');
    }
    return static_cast<std::int16_t>(position > INT16_MAX ? NoIcon : position);
}

} // namespace

std::int16_t ResolveIcon(const SkinIcons& icons, std::u16string_view key) noexcept {
    if (key.empty() || key == u"-1") return NoIcon;
    for (auto i = icons.SkinIconCount() - 1; i >= 0; --i)
        if (icons.Entries[static_cast<std::size_t>(i)].Name == key) return static_cast<std::int16_t>(i);
    const std::int16_t position = PositionOf(key);
    return icons.At(position) ? position : NoIcon;
}

} // namespace vantik

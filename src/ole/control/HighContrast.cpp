#include "ole/control/HighContrast.h"

namespace vantik {

namespace {

const PropertyValues Defaults;

// Grey is nobody's property.
bool IsByDefault(CaptionKind kind, std::int32_t colour) noexcept {
    if (kind == CaptionKind::Disabled) return true;
    return colour == (kind == CaptionKind::Active ? Defaults.CaptionColor1 : Defaults.CaptionColor0);
}

constexpr std::int32_t SystemColour(std::uint32_t number) noexcept {
    return static_cast<std::int32_t>(0x80000000 | number);
}

} // namespace

bool IsHighContrastOn() noexcept {
    HIGHCONTRASTW chosen = {};
    chosen.cbSize = sizeof chosen;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof chosen, &chosen, 0) &&
           (chosen.dwFlags & HCF_HIGHCONTRASTON);
}

std::optional<CaptionColours> HighContrastColours(CaptionKind kind, std::int32_t ofProperty) noexcept {
    if (!IsByDefault(kind, ofProperty) || !IsHighContrastOn()) return std::nullopt;
    switch (kind) {
    case CaptionKind::Active:
        return CaptionColours{SystemColour(COLOR_HIGHLIGHTTEXT), SystemColour(COLOR_HIGHLIGHT)};
    case CaptionKind::Disabled:
        return CaptionColours{SystemColour(COLOR_GRAYTEXT), SystemColour(COLOR_WINDOW)};
    default: return CaptionColours{SystemColour(COLOR_WINDOWTEXT), SystemColour(COLOR_WINDOW)};
    }
}

} // namespace vantik

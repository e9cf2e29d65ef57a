#include "render/ShortenCaption.h"

#include <algorithm>

namespace vantik {

namespace {

constexpr std::u16string_view Dots = u"...";

bool IsPairAt(std::u16string_view text, std::size_t at) {
    const auto isBetween = [](char16_t c, char16_t low, char16_t high) { return c >= low && c <= high; };
    return at + 1 < text.size() && isBetween(text[at], 0xD800, 0xDBFF) &&
           isBetween(text[at + 1], 0xDC00, 0xDFFF);
}

// How many characters from the start fit the budget.
std::size_t LengthThatFits(std::u16string_view text, std::int32_t budget,
                           bool (*isDoubleByte)(char16_t) noexcept) {
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t characters = IsPairAt(text, at) ? 2 : 1;
        budget -= characters == 2 || isDoubleByte(text[at]) ? 2 : 1;
        if (budget < 0) break;
        at += characters;
    }
    return at;
}

} // namespace

std::u16string ShortenCaption(std::u16string_view caption, std::int32_t budget,
                              bool (*isDoubleByte)(char16_t) noexcept) {
    const std::int32_t units = std::max(budget, 0); // keeps the counting below from wrapping
    if (LengthThatFits(caption, units, isDoubleByte) == caption.size()) return std::u16string(caption);
    const auto dots = std::min<std::size_t>(Dots.size(), static_cast<std::size_t>(units));
    const auto kept = LengthThatFits(caption, units - static_cast<std::int32_t>(dots), isDoubleByte);
    return std::u16string(caption.substr(0, kept)).append(Dots.substr(0, dots));
}

} // namespace vantik

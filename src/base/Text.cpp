#include "base/Text.h"

namespace vantik {

std::u16string_view TrimSpaces(std::u16string_view text) noexcept {
    const auto first = text.find_first_not_of(u' ');
    if (first == std::u16string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

std::u16string DecimalText(std::int32_t value) {
    const std::string ascii = std::to_string(value);
    return {ascii.begin(), ascii.end()};
}

bool EqualIgnoringCase(std::u16string_view a, std::u16string_view b) { return UpperCase(a) == UpperCase(b); }

} // namespace vantik

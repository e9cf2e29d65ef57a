// Stand-in for the platform's text tables where there is no Windows: ANSI is Latin-1, and what Latin-1 cannot write
// takes two bytes, so that the rules above these doors can be tested anywhere.
#include "base/Text.h"

namespace vantik {

namespace {

char16_t Upper(char16_t c) {
    const bool ascii = c >= u'a' && c <= u'z';
    const bool latin = c >= 0xE0 && c <= 0xFE && c != 0xF7;
    return ascii || latin ? static_cast<char16_t>(c - 0x20) : c;
}

} // namespace

std::u16string UpperCase(std::u16string_view text) {
    std::u16string upper(text);
    for (char16_t& c : upper) c = Upper(c);
    return upper;
}

std::u16string DecodeAnsi(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size());
    for (const char byte : bytes) text.push_back(static_cast<unsigned char>(byte));
    return text;
}

bool IsDoubleByte(char16_t character) noexcept { return character > 0xFF; }

} // namespace vantik

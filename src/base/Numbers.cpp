#include "base/Numbers.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>

#include "base/Checked.h"
#include "base/ErrorText.h"
#include "base/Text.h"

namespace vantik {

namespace {

// The ASCII letters of the text; a character outside ASCII cannot stand in a number.
std::string AsciiOf(std::u16string_view text) {
    std::string ascii;
    for (const char16_t c : text) {
        if (c > 0x7E) Raise(RunTimeErrorNumber::TypeMismatch);
        ascii.push_back(static_cast<char>(c));
    }
    return ascii;
}

bool IsHexadecimal(const std::string& text) {
    return text.size() > 1 && text[0] == '&' && (text[1] | 0x20) == 'h';
}

template <class Signed>
Signed FromBitPattern(const std::string& digits) {
    std::make_unsigned_t<Signed> bits = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, bits, 16);
    if (error == std::errc::invalid_argument || stop != end) Raise(RunTimeErrorNumber::TypeMismatch);
    if (error == std::errc::result_out_of_range) Raise(RunTimeErrorNumber::Overflow);
    return static_cast<Signed>(bits);
}

bool IsDigit(char c) noexcept { return c >= '0' && c <= '9'; }

// Takes the digits that stand next.
std::string_view TakeDigits(std::string_view& text) noexcept {
    const auto end = std::find_if_not(text.begin(), text.end(), IsDigit);
    const auto digits = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(digits.size());
    return digits;
}

bool TakeOneOf(std::string_view& text, std::string_view characters) noexcept {
    const bool found = !text.empty() && characters.find(text.front()) != characters.npos;
    if (found) text.remove_prefix(1);
    return found;
}

bool TakeMinus(std::string_view& text) noexcept {
    const bool isMinus = text.starts_with('-');
    TakeOneOf(text, "+-");
    return isMinus;
}

// As large as makes no difference any more.
std::int64_t Saturated(std::string_view digits) noexcept {
    constexpr std::int64_t enough = std::int64_t{1} << 40;
    std::int64_t value = 0;
    for (const char digit : digits) value = std::min(value * 10 + (digit - '0'), enough);
    return value;
}

std::int64_t TakeExponent(std::string_view& text) {
    if (!TakeOneOf(text, "eE")) return 0;
    const bool isNegative = TakeMinus(text);
    const auto digits = TakeDigits(text);
    if (digits.empty()) Raise(RunTimeErrorNumber::TypeMismatch);
    return isNegative ? -Saturated(digits) : Saturated(digits);
}

// A number as it is written, without its sign.
struct Decimal {
    std::string Digits; // the first is none of value 0
    // How many of the digits stand before the point; there may be fewer digits, and it may be negative.
    std::int64_t Point = 0;

    char At(std::int64_t place) const noexcept {
        const bool isThere = place >= 0 && place < static_cast<std::int64_t>(Digits.size());
        return isThere ? Digits[static_cast<std::size_t>(place)] : '0';
    }
};

Decimal ReadDecimal(std::string_view text) {
    const auto whole = TakeDigits(text);
    const auto fraction = TakeOneOf(text, ".") ? TakeDigits(text) : std::string_view();
    if (whole.empty() && fraction.empty()) Raise(RunTimeErrorNumber::TypeMismatch);
    const std::int64_t exponent = TakeExponent(text);
    if (!text.empty()) Raise(RunTimeErrorNumber::TypeMismatch);
    Decimal number{std::string(whole).append(fraction), static_cast<std::int64_t>(whole.size()) + exponent};
    const std::size_t zeros = std::min(number.Digits.find_first_not_of('0'), number.Digits.size());
    number.Digits.erase(0, zeros);
    number.Point -= static_cast<std::int64_t>(zeros);
    return number;
}

// By the digits themselves: no binary fraction comes between the text and its half.
bool RoundsUp(const Decimal& number, bool isOdd) noexcept {
    const char first = number.At(number.Point);
    if (first != '5') return first > '5';
    const auto behind = static_cast<std::size_t>(number.Point + 1);
    return isOdd || number.Digits.find_first_not_of('0', behind) != std::string::npos;
}

std::int64_t RoundedHalfToEven(const Decimal& number) {
    constexpr std::int64_t mostDigits = 12; // more than fit 32 bits
    if (!number.Digits.empty() && number.Point > mostDigits) Raise(RunTimeErrorNumber::Overflow);
    std::int64_t whole = 0;
    for (std::int64_t place = 0; place < std::min(number.Point, mostDigits); ++place)
        whole = whole * 10 + (number.At(place) - '0');
    return whole + RoundsUp(number, whole % 2 != 0);
}

std::int64_t FromDecimal(std::string_view text) {
    const bool isNegative = TakeMinus(text);
    const std::int64_t magnitude = RoundedHalfToEven(ReadDecimal(text));
    return isNegative ? -magnitude : magnitude;
}

template <class Signed>
Signed Convert(std::u16string_view text) {
    const std::string ascii = AsciiOf(TrimSpaces(text));
    if (IsHexadecimal(ascii)) return FromBitPattern<Signed>(ascii.substr(2));
    return Narrow<Signed>(FromDecimal(ascii));
}

template <class Signed>
Signed ToInteger(std::u16string_view text) {
    using Limits = std::numeric_limits<Signed>;
    return Explaining([&] { return Convert<Signed>(text); },
                      [&](const RunTimeError& error) {
                          if (error.Number() == RunTimeErrorNumber::TypeMismatch)
                              return ErrorText(Quoted{text}, u" is not a number");
                          return ErrorText(Quoted{text}, u" is no number from ", Limits::min(), u" to ",
                                           Limits::max());
                      });
}

} // namespace

std::int16_t ToInteger16(std::u16string_view text) { return ToInteger<std::int16_t>(text); }
std::int32_t ToInteger32(std::u16string_view text) { return ToInteger<std::int32_t>(text); }

} // namespace vantik

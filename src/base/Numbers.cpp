#include "base/Numbers.h"

#include <charconv>
#include <limits>
#include <string>
#include <type_traits>

#include "base/Checked.h"
#include "base/ErrorText.h"
#include "base/Rounding.h"
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

double UnsignedDecimal(const std::string& text) {
    // from_chars would also take a sign, "inf" and "nan".
    if (text.find_first_of("0123456789.") != 0) Raise(RunTimeErrorNumber::TypeMismatch);
    double value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (stop != end) Raise(RunTimeErrorNumber::TypeMismatch);
    const bool underflow = text.find('-') != std::string::npos; // the exponent's sign
    if (error == std::errc::result_out_of_range && !underflow) Raise(RunTimeErrorNumber::Overflow);
    if (error == std::errc::invalid_argument) Raise(RunTimeErrorNumber::TypeMismatch);
    return value;
}

double FromDecimal(const std::string& text) {
    const bool hasSign = !text.empty() && (text.front() == '-' || text.front() == '+');
    const double magnitude = UnsignedDecimal(text.substr(hasSign ? 1 : 0));
    return hasSign && text.front() == '-' ? -magnitude : magnitude;
}

template <class Signed>
Signed Convert(std::u16string_view text) {
    const std::string ascii = AsciiOf(TrimSpaces(text));
    if (IsHexadecimal(ascii)) return FromBitPattern<Signed>(ascii.substr(2));
    return Narrow<Signed>(RoundHalfToEven(FromDecimal(ascii)));
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

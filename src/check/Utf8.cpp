#include "check/Utf8.h"

#include <algorithm>

namespace vantik {

namespace {

bool IsBeyondAscii(char byte) noexcept { return static_cast<unsigned char>(byte) > 0x7F; }

// How many bytes a character has that begins so; 0 for a byte that begins none.
std::size_t LengthOf(unsigned char lead) noexcept {
    if (lead < 0x80) return 1;
    if (lead < 0xC2) return 0;
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
}

bool IsTail(char byte) noexcept { return (byte & 0xC0) == 0x80; }

} // namespace

std::size_t FirstBeyondAscii(std::string_view bytes) noexcept {
    const auto first = std::find_if(bytes.begin(), bytes.end(), IsBeyondAscii);
    return first == bytes.end() ? std::string_view::npos : static_cast<std::size_t>(first - bytes.begin());
}

bool IsUtf8(std::string_view bytes) noexcept {
    while (!bytes.empty()) {
        const std::size_t length = LengthOf(static_cast<unsigned char>(bytes.front()));
        if (length == 0 || length > bytes.size()) return false;
        const std::string_view tail = bytes.substr(1, length - 1);
        if (!std::all_of(tail.begin(), tail.end(), IsTail)) return false;
        bytes.remove_prefix(length);
    }
    return true;
}

} // namespace vantik

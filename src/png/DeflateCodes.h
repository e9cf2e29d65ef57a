// What the symbols of deflate streams mean, as the upper three bytes of table entries.
#pragma once

#include <array>
#include <cstdint>

#include "png/HuffmanTable.h"

namespace vantik {

// Layout of an entry above the length byte: bits 8..12 number of extra bits, 13..15 the flags below, 16..31 the value
// (literal, base of a length or distance; of code lengths the length itself and, in the upper byte, how many times it
// stands at least). Symbols that no valid stream uses have no flag.
namespace meaning {
inline constexpr HuffmanTable::Entry Literal = 1u << 15;
inline constexpr HuffmanTable::Entry EndOfBlock = 1u << 14;
inline constexpr HuffmanTable::Entry Copy = 1u << 13; // lengths and distances

// Among code lengths only.
inline constexpr HuffmanTable::Entry RepeatPrevious = 1u << 15;
inline constexpr HuffmanTable::Entry Plain = 1u << 14; // one length without extra bits

constexpr unsigned CodeLength(HuffmanTable::Entry entry) { return entry & 0xFF; }
constexpr unsigned ExtraBits(HuffmanTable::Entry entry) { return entry >> 8 & 0x1F; }
constexpr std::uint32_t Value(HuffmanTable::Entry entry) { return entry >> 16; }
constexpr HuffmanTable::Entry Make(std::uint32_t value, unsigned extraBits) {
    return value << 16 | extraBits << 8;
}
} // namespace meaning

inline constexpr unsigned LiteralSymbols = 288;
inline constexpr unsigned DistanceSymbols = 32;
inline constexpr unsigned EndOfBlockSymbol = 256;
inline constexpr unsigned FirstLengthSymbol = 257;
inline constexpr unsigned CodeLengthSymbols = 19;

inline constexpr std::array<std::uint8_t, CodeLengthSymbols> CodeLengthOrder = {
    16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};

inline constexpr std::array<HuffmanTable::Entry, LiteralSymbols> LiteralMeanings = [] {
    std::array<HuffmanTable::Entry, LiteralSymbols> meanings = {};
    for (unsigned symbol = 0; symbol < EndOfBlockSymbol; ++symbol) {
        meanings[symbol] = meaning::Make(symbol, 0) | meaning::Literal;
    }
    meanings[EndOfBlockSymbol] = meaning::EndOfBlock;
    // Eight lengths of one value each, then four per number of extra bits; the last one, 258, stands alone.
    unsigned base = 3;
    for (unsigned i = 0; i < 28; ++i) {
        const unsigned extraBits = i < 8 ? 0 : i / 4 - 1;
        meanings[FirstLengthSymbol + i] = meaning::Make(base, extraBits) | meaning::Copy;
        base += 1u << extraBits;
    }
    meanings[285] = meaning::Make(258, 0) | meaning::Copy;
    return meanings;
}();

inline constexpr std::array<HuffmanTable::Entry, DistanceSymbols> DistanceMeanings = [] {
    std::array<HuffmanTable::Entry, DistanceSymbols> meanings = {};
    unsigned base = 1;
    for (unsigned symbol = 0; symbol < 30; ++symbol) {
        const unsigned extraBits = symbol < 4 ? 0 : symbol / 2 - 1;
        meanings[symbol] = meaning::Make(base, extraBits) | meaning::Copy;
        base += 1u << extraBits;
    }
    return meanings;
}();

inline constexpr std::array<HuffmanTable::Entry, CodeLengthSymbols> CodeLengthMeanings = [] {
    std::array<HuffmanTable::Entry, CodeLengthSymbols> meanings = {};
    for (unsigned symbol = 0; symbol < CodeLengthSymbols; ++symbol) {
        const unsigned extraBits = symbol == 16 ? 2 : symbol == 17 ? 3 : symbol == 18 ? 7 : 0;
        const unsigned timesAtLeast = symbol < 16 ? 1 : symbol == 18 ? 11 : 3;
        const HuffmanTable::Entry flag = symbol < 16    ? meaning::Plain
                                         : symbol == 16 ? meaning::RepeatPrevious
                                                        : 0;
        meanings[symbol] = meaning::Make(timesAtLeast << 8 | (symbol < 16 ? symbol : 0), extraBits) | flag;
    }
    return meanings;
}();

} // namespace vantik

#include "png/HuffmanTable.h"

#include <algorithm>

namespace vantik {

namespace {

constexpr std::uint32_t CodeSpace = 1u << 16; // codes are handled left-justified in 16 bits

constexpr std::array<std::uint8_t, 256> ReversedBytes = [] {
    std::array<std::uint8_t, 256> reversed = {};
    for (unsigned byte = 0; byte < 256; ++byte) {
        for (unsigned bit = 0; bit < 8; ++bit) {
            if (byte >> bit & 1) reversed[byte] = static_cast<std::uint8_t>(reversed[byte] | 0x80u >> bit);
        }
    }
    return reversed;
}();

// A left-justified code reversed is the code's own bits, first bit lowest, whatever its length.
std::uint32_t ReverseBits(std::uint32_t code) noexcept {
    return static_cast<std::uint32_t>(ReversedBytes[code & 0xFF] << 8 | ReversedBytes[code >> 8 & 0xFF]);
}

// The share of the code space that `count` codes of this length take.
std::uint32_t Share(std::uint32_t count, unsigned length) noexcept { return count << (16 - length); }

} // namespace

void HuffmanTable::Erase() noexcept {
    for (unsigned i = 0; i < usedCount_; ++i) entries_[usedIndexes_[i]] = 0;
    usedCount_ = longest_ = probeCount_ = probesThatMatter_ = 0;
}

bool HuffmanTable::Build(std::span<const std::uint8_t> lengths, std::span<const Entry> meanings) {
    Erase();
    // Two counters per length: equal neighbours do not wait for each other.
    std::array<PerLength, 2> halves = {};
    for (std::size_t i = 0; i < lengths.size(); ++i) ++halves[i & 1][lengths[i]];
    PerLength counts = {};
    std::uint32_t taken = 0;
    for (unsigned length = 1; length <= MaxLength; ++length) {
        counts[length] = halves[0][length] + halves[1][length];
        taken += Share(counts[length], length);
        if (counts[length]) longest_ = length;
    }
    if (taken > CodeSpace) {
        longest_ = 0;
        return false;
    }
    Fill(lengths, meanings, counts);
    OrderProbes(counts);
    return true;
}

// Canonical codes: shorter ones first, equal lengths in the order of their symbols.
void HuffmanTable::Fill(std::span<const std::uint8_t> lengths, std::span<const Entry> meanings,
                        const PerLength& counts) {
    PerLength next = {};
    for (unsigned length = 1; length < MaxLength; ++length) {
        next[length + 1] = next[length] + Share(counts[length], length);
    }
    const std::size_t size = std::size_t{1} << longest_;
    if (entries_.size() < size) entries_.resize(size);
    for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol) {
        const unsigned length = lengths[symbol];
        if (length == 0) continue;
        const std::uint32_t index = ReverseBits(next[length]);
        next[length] += Share(1, length);
        entries_[index] = meanings[symbol] | length;
        usedIndexes_[usedCount_++] = static_cast<std::uint16_t>(index);
    }
}

void HuffmanTable::OrderProbes(const PerLength& counts) noexcept {
    std::array<std::uint32_t, MaxLength + 1> shares = {};
    for (unsigned length = 1; length <= longest_; ++length) {
        if (counts[length] == 0) continue;
        const std::uint32_t share = Share(counts[length], length);
        unsigned at = probeCount_++;
        for (; at > 0 && shares[at - 1] < share; --at) {
            shares[at] = shares[at - 1];
            probes_[at] = probes_[at - 1];
        }
        shares[at] = share;
        probes_[at] = {(1u << length) - 1, length};
    }
    const std::uint32_t nearlyAll = CodeSpace - CodeSpace / 32;
    for (std::uint32_t covered = 0; probesThatMatter_ < probeCount_ && covered < nearlyAll;) {
        covered += shares[probesThatMatter_++];
    }
}

} // namespace vantik

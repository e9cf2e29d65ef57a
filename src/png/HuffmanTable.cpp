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
    for (unsigned i = 0; i < usedCount_; ++i) entries_[used_[i]] = 0;
    usedCount_ = longest_ = 0;
}

HuffmanTable::Entry HuffmanTable::FindElsewhere(std::uint64_t bits) const noexcept {
    const auto low = static_cast<std::uint32_t>(bits);
    for (unsigned length = 1; length <= longest_; ++length) {
        const Entry entry = entries_[low & MaskOf(length)];
        if ((entry & 0xFF) == length) return entry;
    }
    return 0;
}

bool HuffmanTable::Build(std::span<const std::uint8_t> lengths, std::span<const Entry> meanings) {
    Erase();
    CollectUsed(lengths);
    PerLength counts = {};
    if (!Count(lengths, counts)) {
        usedCount_ = longest_ = 0;
        return false;
    }
    ChooseWindow(counts);
    Fill(lengths, meanings, counts);
    return true;
}

// Every symbol is written to the list, and stays there when it has a code: a branch would be hard to predict.
void HuffmanTable::CollectUsed(std::span<const std::uint8_t> lengths) noexcept {
    unsigned count = 0;
    for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol) {
        used_[count] = static_cast<std::uint16_t>(symbol);
        count += lengths[symbol] != 0;
    }
    usedCount_ = count;
}

// False when there are more codes than the code space has room for.
bool HuffmanTable::Count(std::span<const std::uint8_t> lengths, PerLength& counts) noexcept {
    // Two counters per length: equal neighbours do not wait for each other.
    std::array<PerLength, 2> halves = {};
    for (unsigned i = 0; i < usedCount_; ++i) ++halves[i & 1][lengths[used_[i]]];
    std::uint32_t taken = 0;
    for (unsigned length = 1; length <= MaxLength; ++length) {
        counts[length] = halves[0][length] + halves[1][length];
        taken += Share(counts[length], length);
        if (counts[length]) longest_ = length;
    }
    return taken <= CodeSpace;
}

void HuffmanTable::ChooseWindow(const PerLength& counts) noexcept {
    std::uint32_t most = 0;
    for (unsigned start = 1; start <= LastWindowStart; ++start) {
        std::uint32_t covered = 0;
        for (unsigned length = start; length < start + WindowSize; ++length)
            covered += Share(counts[length], length);
        if (covered <= most) continue;
        most = covered;
        windowStart_ = start;
    }
    for (unsigned i = 0; i < WindowSize; ++i) masks_[i] = MaskOf(windowStart_ + i);
}

// Canonical codes: shorter ones first, equal lengths in the order of their symbols.
void HuffmanTable::Fill(std::span<const std::uint8_t> lengths, std::span<const Entry> meanings,
                        const PerLength& counts) {
    PerLength next = {};
    for (unsigned length = 1; length < MaxLength; ++length) {
        next[length + 1] = next[length] + Share(counts[length], length);
    }
    const std::size_t size = std::size_t{1} << std::max(longest_, windowStart_ + WindowSize - 1);
    if (entries_.size() < size) entries_.resize(size);
    for (unsigned i = 0; i < usedCount_; ++i) {
        const std::size_t symbol = used_[i];
        const unsigned length = lengths[symbol];
        const std::uint32_t index = ReverseBits(next[length]);
        next[length] += Share(1, length);
        entries_[index] = meanings[symbol] | length;
        used_[i] = static_cast<std::uint16_t>(index);
    }
}

} // namespace vantik

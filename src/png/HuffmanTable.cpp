#include "png/HuffmanTable.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "png/MemoryLimit.h"

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

// What one more comparison for each symbol costs, as a share of the code space in symbols whose candidate is wrong.
constexpr std::uint32_t CostOfComparison = 500;

} // namespace

void HuffmanTable::Erase() noexcept {
    for (unsigned i = 0; i < usedCount_; ++i) entries_[used_[i]] = 0;
    usedCount_ = longest_ = 0;
}

void HuffmanTable::GiveBackLarge() noexcept {
    if (entries_.size() * sizeof(Entry) <= KeptMemory) return;
    Free(entries_);
    usedCount_ = longest_ = 0;
}

// One length after the other, without leaving early: where the code is found is hard to predict too.
HuffmanTable::Entry HuffmanTable::FindLonger(std::uint64_t bits, unsigned length) const noexcept {
    const auto low = static_cast<std::uint32_t>(bits);
    Entry found = 0;
    while (++length <= longest_) {
        const Entry entry = entries_[low & MaskOf(length)];
        found = static_cast<std::uint8_t>(entry) == length ? entry : found;
    }
    return found;
}

bool HuffmanTable::BuildTable(std::span<const std::uint8_t> lengths, std::span<const Entry> meanings) {
    Erase();
    CollectUsed(lengths);
    FirstCodes codes;
    if (!AssignCodes(lengths, codes)) {
        usedCount_ = longest_ = 0;
        return false;
    }
    FindLastCodes(codes);
    ChooseComparisons(codes);
    Fill(lengths, meanings, codes);
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

// Canonical codes: shorter ones first, equal lengths in the order of their symbols. False when there are more codes than
// the code space has room for.
bool HuffmanTable::AssignCodes(std::span<const std::uint8_t> lengths, FirstCodes& codes) noexcept {
    // Two counters per length: equal neighbours do not wait for each other.
    std::array<std::array<std::uint32_t, MaxLength + 1>, 2> counts = {};
    for (unsigned i = 0; i < usedCount_; ++i) ++counts[i & 1][lengths[used_[i]]];
    std::uint32_t next = 0;
    std::uint32_t present = 0;
#pragma GCC unroll 16
    for (unsigned length = 1; length <= MaxLength; ++length) {
        const std::uint32_t count = counts[0][length] + counts[1][length];
        codes[length] = next;
        next += Share(count, length);
        present |= std::uint32_t{count != 0} << length;
    }
    codes[MaxLength + 1] = next;
    longest_ = static_cast<unsigned>(std::bit_width(present >> 1));
    shortest_ = present == 0 ? 1 : static_cast<unsigned>(std::countr_zero(present));
    return next <= CodeSpace;
}

void HuffmanTable::FindLastCodes(const FirstCodes& codes) noexcept {
    lasts_.fill(~Word{0});
    for (unsigned length = shortest_; length < longest_; ++length) {
        lasts_[length - shortest_] = (Word{codes[length + 1]} << (WordBits - 16)) - 1;
    }
}

// The cheapest number, found without branches: which one it is changes from table to table.
void HuffmanTable::ChooseComparisons(const FirstCodes& codes) noexcept {
    std::uint32_t best = ~0u;
#pragma GCC unroll 16
    for (std::uint32_t i = 0; i < Comparisons.size(); ++i) {
        const std::uint32_t told = codes[std::min(shortest_ + Comparisons[i], MaxLength) + 1];
        const std::uint32_t cost = Comparisons[i] * CostOfComparison + CodeSpace - told;
        best = std::min(best, cost * 8 + i);
    }
    comparisons_ = best % 8;
}

// For candidates a table may have when it has no code at all, too.
std::size_t HuffmanTable::NeededSize() const noexcept {
    return std::size_t{1} << std::max(shortest_, longest_);
}

void HuffmanTable::Fill(std::span<const std::uint8_t> lengths, std::span<const Entry> meanings,
                        FirstCodes& next) {
    const std::size_t size = NeededSize();
    const unsigned count = std::exchange(usedCount_, 0); // nothing to erase when there is no memory
    if (entries_.size() < size) entries_.resize(size);
    usedCount_ = count;
    Entry* const entries = entries_.data();
    for (unsigned i = 0; i < usedCount_; ++i) {
        const std::size_t symbol = used_[i];
        const unsigned length = lengths[symbol];
        const std::uint32_t code = next[length];
        next[length] = code + Share(1, length);
        const std::uint32_t index = ReverseBits(code);
        entries[index] = meanings[symbol] | length;
        used_[i] = static_cast<std::uint16_t>(index);
    }
}

} // namespace vantik

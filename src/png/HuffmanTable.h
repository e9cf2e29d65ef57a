// The decoding table of one Huffman code.
//
// One flat table: a code of length L stands only at the index that its reversed bits make, together with its length.
// The decoder masks the next bits to a candidate length and has found its symbol when the entry there has that very
// length. No code is the beginning of another, so at most one candidate matches and their order is free: the one that the
// bits' place among the codes speaks for comes first. Codes are ordered by length, so comparing the bits with the last
// code of every length tells which; without a branch, which would be mispredicted on nearly every symbol, and without a
// look into memory, so that the next symbol need not wait for this one's entry.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace vantik {

class HuffmanTable {
public:
    static constexpr unsigned MaxLength = 15;
    static constexpr unsigned MaxSymbols = 288;

    // An entry has the code's length in its low byte and the caller's meaning of the symbol in the other three;
    // 0 is no entry.
    using Entry = std::uint32_t;

    // Code lengths of symbol 0, 1, ... and what each symbol means. False, and no codes, when the lengths promise more
    // codes than there are; a code with gaps is accepted.
    bool BuildTable(std::span<const std::uint8_t> lengths, std::span<const Entry> meanings);

    // Frees what few pictures need.
    void GiveBackLarge() noexcept;

    // The entry of the code that the bits begin with, 0 when no length matches; all lengths, or those above one.
    Entry Find(std::uint64_t bits) const noexcept { return FindLonger(bits, shortest_ - 1); }
    Entry FindLonger(std::uint64_t bits, unsigned length) const noexcept;

    // The first candidate for the code that these bits begin with, their first one highest: the only one unless it is the
    // longest that so many comparisons can tell.
    template <unsigned Comparisons>
    unsigned CandidateLength(std::uint64_t mirrored) const noexcept {
        const auto word = static_cast<Word>(mirrored >> (64 - WordBits));
        // Three sums that do not wait for each other.
        const unsigned first = CountBefore<0, Comparisons>(word, shortest_);
        const unsigned second = CountBefore<1, Comparisons>(word, 0);
        const unsigned third = CountBefore<2, Comparisons>(word, 0);
        return first + second + third;
    }

    // The probe of a candidate; the entry found is the code's if it has that length.
    Entry Probe(std::uint64_t bits, unsigned length) const noexcept {
        return entries_.data()[static_cast<std::size_t>(bits) & ((std::size_t{1} << length) - 1)];
    }

    // Numbers of comparisons that a table chooses from. More take longer, but so does a code whose length they cannot tell.
    static constexpr auto Comparisons = std::to_array<unsigned>({3, 5, 7, 9, 11, 14});
    std::size_t ChosenComparisons() const noexcept { return comparisons_; } // of these

    unsigned LongestCode() const noexcept { return longest_; }

private:
    // The first code of every length, left-justified in 16 bits; behind them where the last code ends.
    using FirstCodes = std::array<std::uint32_t, MaxLength + 2>;

    static constexpr std::uint32_t MaskOf(unsigned length) noexcept { return (1u << length) - 1; }

    using Word = std::size_t; // what the machine compares in one step
    static constexpr unsigned WordBits = 8 * sizeof(Word);

    // Of every third length.
    template <unsigned First, unsigned End>
    unsigned CountBefore(Word word, unsigned count) const noexcept {
#pragma GCC unroll 16
        for (unsigned i = First; i < End; i += 3) count += lasts_[i] < word;
        asm("" : "+r"(count)); // else the compiler would join the sums
        return count;
    }

    void Erase() noexcept;
    void CollectUsed(std::span<const std::uint8_t> lengths) noexcept;
    bool AssignCodes(std::span<const std::uint8_t> lengths, FirstCodes& codes) noexcept;
    void FindLastCodes(const FirstCodes& codes) noexcept;
    void ChooseComparisons(const FirstCodes& codes) noexcept;
    std::size_t NeededSize() const noexcept;
    void Fill(std::span<const std::uint8_t> lengths, std::span<const Entry> meanings, FirstCodes& next);

    // 0 wherever no code of the present table stands; large enough for every probe.
    std::vector<Entry> entries_;
    // The symbols that have a code; once the table is filled, where their codes stand, so that they can be erased.
    std::array<std::uint16_t, MaxSymbols + 1> used_;
    unsigned usedCount_ = 0;
    unsigned shortest_ = 1;
    unsigned longest_ = 0;
    std::size_t comparisons_ = 0;
    // The last code of shortest_ bits, then of one more each, with ones behind it; behind the longest nothing but ones.
    std::array<Word, MaxLength> lasts_ = {};
};

} // namespace vantik

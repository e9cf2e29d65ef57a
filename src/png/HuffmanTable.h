// The decoding table of one Huffman code.
//
// One flat table: a code of length L stands only at the index that its reversed bits make, together with its length.
// The decoder masks the next bits to a candidate length and has found its symbol when the entry there has that very
// length. No code is the beginning of another, so at most one candidate matches and their order is free: the run of six
// lengths that covers most of the code space is tried first, all of it at once and without a branch; a branch for each
// length would be mispredicted on nearly every symbol.
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

    // A run of lengths that are tried at once.
    struct Window {
        unsigned Start;
        unsigned Size;
    };

    // Those that a table chooses from. Probing more lengths takes longer, but so does a symbol outside the window.
    static constexpr auto Windows = std::to_array<Window>({{1, 6},
                                                           {2, 6},
                                                           {3, 6},
                                                           {4, 6},
                                                           {5, 6},
                                                           {7, 6},
                                                           {1, 8},
                                                           {2, 8},
                                                           {3, 8},
                                                           {4, 8},
                                                           {1, 10},
                                                           {2, 10},
                                                           {3, 10},
                                                           {5, 10}});

    // Code lengths of symbol 0, 1, ... and what each symbol means. False, and no codes, when the lengths promise more
    // codes than there are; a code with gaps is accepted.
    bool BuildTable(std::span<const std::uint8_t> lengths, std::span<const Entry> meanings);

    // The entry of the code that the bits begin with, 0 when no length matches.
    Entry Find(std::uint64_t bits) const noexcept;

    // The same where the compiler knows the window. `entries` are the table's own.
    template <unsigned Start, unsigned Size>
    Entry FindWithin(const Entry* entries, std::uint64_t bits) const noexcept {
        const Entry entry = ProbeWindow<Start, Size>(entries, static_cast<std::uint32_t>(bits));
        if (entry != 0) [[likely]]
            return entry;
        return Find(bits);
    }

    const Entry* Entries() const noexcept { return entries_.data(); }
    unsigned LongestCode() const noexcept { return longest_; }
    // Of Windows.
    std::size_t ChosenWindow() const noexcept { return window_; }

private:
    // The first code of every length, left-justified in 16 bits; behind them where the last code ends.
    using FirstCodes = std::array<std::uint32_t, MaxLength + 2>;

    static constexpr std::uint32_t MaskOf(unsigned length) noexcept { return (1u << length) - 1; }

    // Two chains of selections that do not wait for each other.
    template <unsigned Start, unsigned Size>
    static Entry ProbeWindow(const Entry* entries, std::uint32_t bits) noexcept {
        Entry found[2] = {};
#pragma GCC unroll 16
        for (unsigned i = 0; i < Size; ++i) {
            const Entry entry = entries[bits & MaskOf(Start + i)];
            found[i % 2] = static_cast<std::uint8_t>(entry) == Start + i ? entry : found[i % 2];
        }
        Entry both = found[0] | found[1];
        // Else the compiler would join the last selection and the caller's test for 0 into a branch.
        asm("" : "+r"(both));
        return both;
    }

    void Erase() noexcept;
    void CollectUsed(std::span<const std::uint8_t> lengths) noexcept;
    bool AssignCodes(std::span<const std::uint8_t> lengths, FirstCodes& codes) noexcept;
    void ChooseWindow(const FirstCodes& codes) noexcept;
    void Fill(std::span<const std::uint8_t> lengths, std::span<const Entry> meanings, FirstCodes& next);

    // 0 wherever no code of the present table stands; large enough for every probe of the window.
    std::vector<Entry> entries_;
    // The symbols that have a code; once the table is filled, where their codes stand, so that they can be erased.
    std::array<std::uint16_t, MaxSymbols + 1> used_;
    unsigned usedCount_ = 0;
    unsigned longest_ = 0;
    std::size_t window_ = 0;
};

} // namespace vantik

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

    // How many lengths are tried at once, and the highest length that such a run may start with.
    static constexpr unsigned WindowSize = 6;
    static constexpr unsigned LastWindowStart = MaxLength + 1 - WindowSize;

    // Code lengths of symbol 0, 1, ... and what each symbol means. False, and no codes, when the lengths promise more
    // codes than there are; a code with gaps is accepted.
    bool Build(std::span<const std::uint8_t> lengths, std::span<const Entry> meanings);

    // The entry of the code that the bits begin with, 0 when no length matches.
    Entry Find(std::uint64_t bits) const noexcept {
        const auto low = static_cast<std::uint32_t>(bits);
        const Entry entry =
            ProbeWindow(entries_.data(), low, windowStart_, [this](unsigned i) { return masks_[i]; });
        return entry != 0 ? entry : FindElsewhere(bits);
    }

    // The same where the compiler knows the window: one that starts where the table's own does.
    template <unsigned WindowStart>
    Entry FindFrom(const Entry* entries, std::uint64_t bits) const noexcept {
        const auto low = static_cast<std::uint32_t>(bits);
        const Entry entry =
            ProbeWindow(entries, low, WindowStart, [](unsigned i) { return MaskOf(WindowStart + i); });
        if (entry != 0) [[likely]]
            return entry;
        return FindElsewhere(bits);
    }

    const Entry* Entries() const noexcept { return entries_.data(); }
    unsigned LongestCode() const noexcept { return longest_; }
    unsigned WindowStart() const noexcept { return windowStart_; }

private:
    using PerLength = std::array<std::uint32_t, MaxLength + 1>;

    static constexpr std::uint32_t MaskOf(unsigned length) noexcept { return (1u << length) - 1; }

    // Two chains of selections that do not wait for each other.
    template <class Masks>
    static Entry ProbeWindow(const Entry* entries, std::uint32_t bits, unsigned start,
                             Masks maskAt) noexcept {
        Entry found[2] = {};
#pragma GCC unroll 6
        for (unsigned i = 0; i < WindowSize; ++i) {
            const Entry entry = entries[bits & maskAt(i)];
            found[i % 2] = static_cast<std::uint8_t>(entry) == start + i ? entry : found[i % 2];
        }
        return found[0] | found[1];
    }

    Entry FindElsewhere(std::uint64_t bits) const noexcept;
    void Erase() noexcept;
    void CollectUsed(std::span<const std::uint8_t> lengths) noexcept;
    bool Count(std::span<const std::uint8_t> lengths, PerLength& counts) noexcept;
    void Fill(std::span<const std::uint8_t> lengths, std::span<const Entry> meanings,
              const PerLength& counts);
    void ChooseWindow(const PerLength& counts) noexcept;

    // 0 wherever no code of the present table stands; large enough for every probe of the window.
    std::vector<Entry> entries_;
    // The symbols that have a code; once the table is filled, where their codes stand, so that they can be erased.
    std::array<std::uint16_t, MaxSymbols + 1> used_ = {};
    unsigned usedCount_ = 0;
    unsigned longest_ = 0;
    unsigned windowStart_ = 1;
    std::array<std::uint32_t, WindowSize> masks_ = {};
};

} // namespace vantik

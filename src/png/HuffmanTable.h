// The decoding table of one Huffman code.
//
// One flat table: a code of length L stands only at the index that its reversed bits make, together with its length.
// The decoder masks the next bits to a candidate length and has found its symbol when the entry there has that very
// length. No code is the beginning of another, so at most one candidate matches and their order is free: lengths that
// cover most of the code space are tried first, all at once and without branches.
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

    struct Probe {
        std::uint32_t Mask = 0;
        std::uint32_t Length = 0xFF; // no entry has the length of an unused probe
    };

    // Code lengths of symbol 0, 1, ... and what each symbol means. False, and no codes, when the lengths promise more
    // codes than there are; a code with gaps is accepted.
    bool Build(std::span<const std::uint8_t> lengths, std::span<const Entry> meanings);

    // The entry of the code that the bits begin with, 0 when no length matches.
    Entry Find(std::uint64_t bits) const noexcept { return FindAfter(bits, 0); }

    // The same over the candidates behind the first `skipped` ones.
    Entry FindAfter(std::uint64_t bits, unsigned skipped) const noexcept {
        const auto low = static_cast<std::uint32_t>(bits);
        for (unsigned i = skipped; i < probeCount_; ++i) {
            const Entry entry = entries_[low & probes_[i].Mask];
            if ((entry & 0xFF) == probes_[i].Length) return entry;
        }
        return 0;
    }

    unsigned LongestCode() const noexcept { return longest_; }
    const Entry* Entries() const noexcept { return entries_.data(); }
    const Probe& ProbeAt(unsigned index) const noexcept { return probes_[index]; }

    // How many candidates, counted from the first, cover nearly all of the code space.
    unsigned ProbesThatMatter() const noexcept { return probesThatMatter_; }

private:
    using PerLength = std::array<std::uint32_t, MaxLength + 1>;

    void Erase() noexcept;
    void Fill(std::span<const std::uint8_t> lengths, std::span<const Entry> meanings,
              const PerLength& counts);
    void OrderProbes(const PerLength& counts) noexcept;

    std::vector<Entry> entries_; // 0 wherever no code of the present table stands
    std::array<std::uint16_t, MaxSymbols> usedIndexes_ = {};
    unsigned usedCount_ = 0;
    unsigned longest_ = 0;
    std::array<Probe, MaxLength + 1> probes_ = {};
    unsigned probeCount_ = 0;
    unsigned probesThatMatter_ = 0;
};

} // namespace vantik

#include "png/Inflate.h"

#include <array>
#include <cstring>

#include "base/Checked.h"
#include "png/DeflateCodes.h"

namespace vantik {

namespace {

// Wide copies may write so far behind the limit; nobody reads what they leave there.
constexpr std::size_t Slack = 258 + 32;

constexpr std::int32_t AllowedExcess = 100;

} // namespace

void Inflater::Begin(ByteView input, std::int32_t& expectedSize, bool deflate64) {
    expectedSize = Checked(expectedSize) + AllowedExcess;
    if (expectedSize < 0) Raise(RunTimeErrorNumber::SubscriptOutOfRange);
    limit_ = static_cast<std::size_t>(expectedSize);
    output_ = ByteBuffer(limit_ + 1 + Slack);
    position_ = 0;
    bits_ = BitReader(input);
    phase_ = Phase::BlockHeader;
    result_ = inflate_result::Done;
    isDeflate64_ = deflate64;
}

void Inflater::ContinueTo(std::size_t produced) {
    try {
        while (phase_ != Phase::Ended && position_ < produced) Step(produced);
    } catch (const BrokenStream& broken) {
        result_ = broken.Result;
        phase_ = Phase::Ended;
    }
}

void Inflater::End() noexcept {
    output_ = {};
    position_ = 0;
    phase_ = Phase::Ended;
    codeLengths_ = {};
    dynamic_ = {};
}

void Inflater::Inflate(std::vector<std::uint8_t>& data, std::int32_t& expectedSize, bool deflate64,
                       std::int32_t& result) {
    Begin(data, expectedSize, deflate64);
    ContinueTo(SIZE_MAX);
    result = result_;
    data.assign(Output().begin(), Output().end());
    End();
}

void Inflater::Step(std::size_t produced) {
    if (phase_ == Phase::BlockHeader) {
        ReadBlockHeader();
    } else {
        DecodeSymbols(produced);
    }
}

void Inflater::EndBlock() noexcept { phase_ = isLastBlock_ ? Phase::Ended : Phase::BlockHeader; }

void Inflater::ReadBlockHeader() {
    isLastBlock_ = bits_.Get(1) != 0;
    switch (bits_.Get(2)) {
    case 0: return CopyStoredBlock();
    case 1: UseFixedTables(); break;
    case 2: ReadDynamicTables(); break;
    default: throw BrokenStream{inflate_result::Broken};
    }
    phase_ = Phase::Symbols;
}

void Inflater::CopyStoredBlock() {
    const ByteView rest = bits_.RestFromByte();
    const unsigned length = rest[0] | rest[1] << 8u;
    const unsigned complement = rest[2] | rest[3] << 8u;
    if (length != (~complement & 0xFFFF)) result_ = inflate_result::StoredMismatch;
    if (4 + length > rest.size() || position_ + length > limit_ + 1)
        throw BrokenStream{inflate_result::Broken};
    std::memcpy(output_.data() + position_, rest.data() + 4, length);
    position_ += length;
    bits_.ContinueAt(rest.data() + 4 + length);
    EndBlock();
}

void Inflater::UseFixedTables() {
    if (!fixed_) {
        std::array<std::uint8_t, LiteralSymbols> lengths;
        for (unsigned symbol = 0; symbol < LiteralSymbols; ++symbol) {
            lengths[symbol] = symbol < 144 ? 8 : symbol < 256 ? 9 : symbol < 280 ? 7 : 8;
        }
        std::array<std::uint8_t, DistanceSymbols> distanceLengths;
        distanceLengths.fill(5);
        fixed_.emplace();
        fixed_->Literals.Build(lengths, LiteralMeanings);
        fixed_->Distances.Build(distanceLengths, DistanceMeanings);
    }
    tables_ = &*fixed_;
}

void Inflater::ReadDynamicTables() {
    const unsigned literalCount = bits_.Get(5) + 257;
    const unsigned distanceCount = bits_.Get(5) + 1;
    const unsigned codeLengthCount = bits_.Get(4) + 4;
    std::array<std::uint8_t, CodeLengthSymbols> codeLengths = {};
    for (unsigned i = 0; i < codeLengthCount; ++i) {
        codeLengths[CodeLengthOrder[i]] = static_cast<std::uint8_t>(bits_.Get(3));
    }
    if (!codeLengths_.Build(codeLengths, CodeLengthMeanings)) throw BrokenStream{inflate_result::Broken};

    std::array<std::uint8_t, LiteralSymbols + DistanceSymbols> lengths = {};
    ReadCodeLengths(lengths.data(), literalCount + distanceCount);
    const std::span all(lengths);
    if (!dynamic_.Literals.Build(all.first(literalCount), LiteralMeanings) ||
        !dynamic_.Distances.Build(all.subspan(literalCount, distanceCount), DistanceMeanings)) {
        throw BrokenStream{inflate_result::Broken};
    }
    tables_ = &dynamic_;
}

void Inflater::ReadCodeLengths(std::uint8_t* lengths, unsigned count) {
    for (unsigned at = 0; at < count;) {
        const HuffmanTable::Entry entry = DecodeEntry(codeLengths_);
        if (meaning::Value(entry) < 16) {
            lengths[at++] = static_cast<std::uint8_t>(meaning::Value(entry));
        } else {
            RepeatLength(lengths, at, count, entry);
        }
    }
}

// 16 repeats the length before, 17 and 18 stand for zeros, which is what the lengths are to begin with.
void Inflater::RepeatLength(std::uint8_t* lengths, unsigned& at, unsigned count, HuffmanTable::Entry entry) {
    const bool repeatsPrevious = meaning::Value(entry) == 16;
    if (repeatsPrevious && at == 0) throw BrokenStream{inflate_result::NothingToRepeat};
    const unsigned least = meaning::Value(entry) == 18 ? 11 : 3;
    const unsigned times = least + bits_.Get(meaning::ExtraBits(entry));
    if (at + times > count) throw BrokenStream{inflate_result::RepeatTooLong};
    if (repeatsPrevious) std::memset(lengths + at, lengths[at - 1], times);
    at += times;
}

HuffmanTable::Entry Inflater::DecodeEntry(const HuffmanTable& table) {
    bits_.Need(table.LongestCode());
    const HuffmanTable::Entry entry = table.Find(bits_.Peek());
    if (entry == 0) throw BrokenStream{inflate_result::Broken};
    bits_.Drop(meaning::CodeLength(entry));
    return entry;
}

void Inflater::DecodeSymbols(std::size_t produced) {
    const bool fewLengths = tables_->Literals.ProbesThatMatter() <= 4;
    if (bits_.IsFarFromEnd() && position_ + 3 <= limit_ && !isDeflate64_) {
        if (fewLengths) {
            DecodeFast<4, 4>(produced);
        } else {
            DecodeFast<6, 4>(produced);
        }
    }
    if (phase_ == Phase::Symbols && position_ < produced) DecodeCarefully();
}

// One symbol, with every check at every step.
void Inflater::DecodeCarefully() {
    const HuffmanTable::Entry entry = DecodeEntry(tables_->Literals);
    if (entry & meaning::Literal) return StoreLiteral(static_cast<std::uint8_t>(meaning::Value(entry)));
    if (entry & meaning::EndOfBlock) return EndBlock();
    const std::uint32_t length = ReadMatchLength(entry);
    const HuffmanTable::Entry distance = DecodeEntry(tables_->Distances);
    if (distance & meaning::Reserved) throw BrokenStream{inflate_result::Broken};
    CopyCarefully(meaning::Value(distance) + bits_.Get(meaning::ExtraBits(distance)), length);
}

void Inflater::StoreLiteral(std::uint8_t literal) {
    if (position_ > limit_) Raise(RunTimeErrorNumber::SubscriptOutOfRange);
    output_.data()[position_++] = literal;
}

std::uint32_t Inflater::ReadMatchLength(HuffmanTable::Entry entry) {
    if (entry & meaning::Reserved) throw BrokenStream{inflate_result::Broken};
    const std::uint32_t length = meaning::Value(entry) + bits_.Get(meaning::ExtraBits(entry));
    return isDeflate64_ && length == 258 ? bits_.Get(16) + 3 : length;
}

void Inflater::CopyCarefully(std::size_t distance, std::uint32_t length) {
    for (; length > 0; --length, ++position_) {
        if (position_ > limit_) return CutAtLimit();
        if (distance > position_) Raise(RunTimeErrorNumber::SubscriptOutOfRange);
        output_.data()[position_] = output_.data()[position_ - distance];
    }
}

// A copy that goes beyond the limit ends the decoding as a final block does; the last byte is given up.
void Inflater::CutAtLimit() noexcept {
    position_ = limit_;
    phase_ = Phase::Ended;
}

namespace {

// The first candidates of a table, held in registers.
template <unsigned Count>
struct FirstProbes {
    explicit FirstProbes(const HuffmanTable& table) : Entries(table.Entries()) {
        for (unsigned i = 0; i < Count; ++i) {
            Masks[i] = table.ProbeAt(i).Mask;
            Lengths[i] = static_cast<std::uint8_t>(table.ProbeAt(i).Length);
        }
    }

    // All candidates in two chains of selections that do not wait for each other; 0 when none matches.
    HuffmanTable::Entry Find(std::uint64_t bits) const noexcept {
        HuffmanTable::Entry even = 0;
        HuffmanTable::Entry odd = 0;
        const auto low = static_cast<std::uint32_t>(bits);
#pragma GCC unroll 8
        for (unsigned i = 0; i < Count; i += 2) {
            const HuffmanTable::Entry first = Entries[low & Masks[i]];
            even = static_cast<std::uint8_t>(first) == Lengths[i] ? first : even;
            const HuffmanTable::Entry second = Entries[low & Masks[i + 1]];
            odd = static_cast<std::uint8_t>(second) == Lengths[i + 1] ? second : odd;
        }
        return even | odd;
    }

    const HuffmanTable::Entry* Entries;
    std::uint32_t Masks[Count];
    std::uint8_t Lengths[Count];
};

template <unsigned Count>
inline HuffmanTable::Entry FindIn(const FirstProbes<Count>& first, const HuffmanTable& table,
                                  std::uint64_t bits) noexcept {
    const HuffmanTable::Entry entry = first.Find(bits);
    if (entry != 0) [[likely]]
        return entry;
    return table.FindAfter(bits, Count);
}

template <std::size_t Width>
inline void CopyWide(std::uint8_t* to, const std::uint8_t* from, const std::uint8_t* end) noexcept {
    do {
        std::memcpy(to, from, Width);
        to += Width;
        from += Width;
    } while (to < end);
}

// May write up to 31 bytes behind the end.
inline void CopyMatch(std::uint8_t* to, std::size_t distance, std::uint32_t length) noexcept {
    const std::uint8_t* from = to - distance;
    std::uint8_t* const end = to + length;
    if (distance >= 16) return CopyWide<16>(to, from, end);
    if (distance == 1) {
        std::memset(to, *from, length);
        return;
    }
    if (distance >= 8) return CopyWide<8>(to, from, end);
    do *to++ = *from++;
    while (to < end);
}

} // namespace

// Up to three literals and one match a turn; ends near the end of the input or of the output, at the end of the block,
// and when there is enough output. At its top: position < produced, position + 2 <= limit, input far from its end.
template <unsigned LiteralProbes, unsigned DistanceProbes>
void Inflater::DecodeFast(std::size_t produced) {
    const FirstProbes<LiteralProbes> literals(tables_->Literals);
    const FirstProbes<DistanceProbes> distances(tables_->Distances);
    const Tables& tables = *tables_;
    BitReader::Registers bits = bits_.Load();
    std::uint8_t* const start = output_.data();
    std::uint8_t* out = start + position_;
    std::uint8_t* const stop = start + std::min(produced, limit_ - 2);

    const auto leave = [&] {
        bits_.Store(bits);
        position_ = static_cast<std::size_t>(out - start);
    };

    while (out < stop && bits.Next <= bits.Safe) {
        bits.Refill();
        HuffmanTable::Entry entry = FindIn(literals, tables.Literals, bits.Bits);
        bits.DropCode(entry);
        if (entry & meaning::Literal) {
            *out++ = static_cast<std::uint8_t>(meaning::Value(entry));
            entry = FindIn(literals, tables.Literals, bits.Bits);
            bits.DropCode(entry);
            if (entry & meaning::Literal) {
                *out++ = static_cast<std::uint8_t>(meaning::Value(entry));
                entry = FindIn(literals, tables.Literals, bits.Bits);
                bits.DropCode(entry);
                if (entry & meaning::Literal) {
                    *out++ = static_cast<std::uint8_t>(meaning::Value(entry));
                    continue;
                }
            }
            bits.Refill();
        }
        if (entry == 0 || (entry & (meaning::EndOfBlock | meaning::Reserved))) [[unlikely]] {
            leave();
            if (entry & meaning::EndOfBlock) return EndBlock();
            throw BrokenStream{inflate_result::Broken};
        }
        const std::uint32_t length = meaning::Value(entry) + bits.Get(meaning::ExtraBits(entry));
        entry = FindIn(distances, tables.Distances, bits.Bits);
        bits.DropCode(entry);
        if (entry == 0 || (entry & meaning::Reserved)) [[unlikely]] {
            leave();
            throw BrokenStream{inflate_result::Broken};
        }
        const std::size_t distance = meaning::Value(entry) + bits.Get(meaning::ExtraBits(entry));
        if (distance > static_cast<std::size_t>(out - start)) Raise(RunTimeErrorNumber::SubscriptOutOfRange);
        CopyMatch(out, distance, length);
        out += length;
    }
    leave();
    if (position_ > limit_ + 1) CutAtLimit();
}

} // namespace vantik

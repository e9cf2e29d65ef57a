#include "png/Inflate.h"

#include <array>
#include <cstring>
#include <utility>

#include "base/Checked.h"
#include "png/DeflateCodes.h"
#include "png/MatchCopy.h"
#include "png/MemoryLimit.h"

namespace vantik {

namespace {

// Wide copies may write so far behind the limit; nobody reads what they leave there.
constexpr std::size_t Slack = 258 + 32;

constexpr std::int32_t AllowedExcess = 100;

// Enough for all but a few codes of distances.
constexpr unsigned DistanceComparisons = 7;

} // namespace

void Inflater::Begin(ByteView input, std::int32_t& expectedSize, bool deflate64) {
    expectedSize = Checked(expectedSize) + AllowedExcess;
    if (expectedSize < 0) Raise(RunTimeErrorNumber::SubscriptOutOfRange);
    limit_ = static_cast<std::size_t>(expectedSize);
    NeedOutput(limit_ + 1 + Slack);
    position_ = 0;
    bits_ = BitReader(input);
    mirror_.Forget();
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

// A buffer that is too small, or that an error left, goes before the new one comes.
void Inflater::NeedOutput(std::size_t size) {
    GiveBackLarge(output_);
    if (size <= output_.size()) return;
    Free(output_);
    output_ = ByteBuffer(size);
}

void Inflater::End() noexcept {
    GiveBackLarge(output_);
    dynamic_.Literals.GiveBackLarge();
    dynamic_.Distances.GiveBackLarge();
    position_ = 0;
    phase_ = Phase::Ended;
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

// At a symbol that is neither literal nor copy.
void Inflater::EndAt(HuffmanTable::Entry entry) {
    if (!(entry & meaning::EndOfBlock)) throw BrokenStream{inflate_result::Broken};
    EndBlock();
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
    const auto number = [&](std::size_t at) { return rest[at] | static_cast<unsigned>(rest[at + 1]) << 8; };
    const unsigned length = number(0), complement = number(2);
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
        Tables built; // kept when both are whole only
        built.Literals.BuildTable(lengths, LiteralMeanings);
        built.Distances.BuildTable(distanceLengths, DistanceMeanings);
        fixed_ = std::move(built);
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
    if (!codeLengths_.BuildTable(codeLengths, CodeLengthMeanings)) throw BrokenStream{inflate_result::Broken};

    std::array<std::uint8_t, LiteralSymbols + DistanceSymbols + sizeof(std::uint64_t)> lengths = {};
    ReadCodeLengths(lengths.data(), literalCount + distanceCount);
    const std::span all(lengths);
    if (!dynamic_.Literals.BuildTable(all.first(literalCount), LiteralMeanings) ||
        !dynamic_.Distances.BuildTable(all.subspan(literalCount, distanceCount), DistanceMeanings)) {
        throw BrokenStream{inflate_result::Broken};
    }
    tables_ = &dynamic_;
}

namespace {

// Writes code lengths one after the other.
class LengthWriter {
public:
    LengthWriter(std::uint8_t* lengths, unsigned count) : lengths_(lengths), count_(count) {}

    bool IsFull() const noexcept { return at_ >= count_; }

    void WriteOne(std::uint32_t length) noexcept {
        previous_ = length & 0xFF;
        lengths_[at_++] = static_cast<std::uint8_t>(length);
    }

    // A length, the length before again, or a run of zeros, all in the same steps: eight copies are stored whatever the
    // number of repeats. Only zeros are repeated more often, and behind those eight there are zeros already.
    void Write(HuffmanTable::Entry entry, std::uint32_t extra) {
        const bool repeatsPrevious = (entry & meaning::RepeatPrevious) != 0;
        if (repeatsPrevious && at_ == 0) throw BrokenStream{inflate_result::NothingToRepeat};
        const unsigned times = (meaning::Value(entry) >> 8) + extra;
        if (at_ + times > count_) throw BrokenStream{inflate_result::RepeatTooLong};
        previous_ = repeatsPrevious ? previous_ : meaning::Value(entry) & 0xFF;
        const std::uint64_t copies = previous_ * 0x0101010101010101u;
        std::memcpy(lengths_ + at_, &copies, sizeof copies);
        at_ += times;
    }

private:
    std::uint8_t* const lengths_;
    const unsigned count_;
    unsigned at_ = 0;
    std::uint32_t previous_ = 0;
};

// Compared as bytes, which takes one step less.
constexpr bool HasCodeLength(HuffmanTable::Entry entry, unsigned length) noexcept {
    return static_cast<std::uint8_t>(entry) == static_cast<std::uint8_t>(length);
}

// The next symbol, 0 when there is no such code.
template <unsigned Comparisons>
inline HuffmanTable::Entry Decode(const HuffmanTable& table, BitReader::Registers& bits) {
    unsigned length = table.CandidateLength<Comparisons>(bits.Mirrored);
    HuffmanTable::Entry entry = table.Probe(bits.Bits, length);
    if (!HasCodeLength(entry, length)) [[unlikely]] {
        entry = table.FindLonger(bits.Bits, length);
        length = meaning::CodeLength(entry);
    }
    bits.Drop(length);
    return entry;
}

} // namespace

void Inflater::ReadCodeLengths(std::uint8_t* lengths, unsigned count) {
    LengthWriter writer(lengths, count);
    BitReader::Registers bits = bits_.Load(mirror_);
    while (!writer.IsFull() && bits.Next < bits.Safe) {
        bits.Refill();
        for (int i = 0; i < 4 && !writer.IsFull(); ++i) {
            const HuffmanTable::Entry entry = Decode<6>(codeLengths_, bits);
            if (entry & meaning::Plain) [[likely]] {
                writer.WriteOne(meaning::Value(entry));
            } else {
                if (entry == 0) throw BrokenStream{inflate_result::Broken};
                writer.Write(entry, bits.Get(meaning::ExtraBits(entry)));
            }
        }
    }
    bits_.Store(bits);
    while (!writer.IsFull()) {
        const HuffmanTable::Entry entry = DecodeEntry(codeLengths_);
        writer.Write(entry, bits_.Get(meaning::ExtraBits(entry)));
    }
}

HuffmanTable::Entry Inflater::DecodeEntry(const HuffmanTable& table) {
    bits_.Need(table.LongestCode());
    const HuffmanTable::Entry entry = table.Find(bits_.Peek());
    if (entry == 0) throw BrokenStream{inflate_result::Broken};
    bits_.Drop(meaning::CodeLength(entry));
    return entry;
}

template <std::size_t... Choices>
void Inflater::ChooseDecodeFast(std::size_t produced, std::index_sequence<Choices...>) {
    using Variant = void (Inflater::*)(std::size_t);
    static constexpr Variant Anywhere[] = {&Inflater::DecodeAnywhere<HuffmanTable::Comparisons[Choices]>...};
    const Variant* variants = Anywhere;
    if constexpr (MayHaveFreeShifts) {
        static constexpr Variant WithFreeShifts[] = {
            &Inflater::DecodeWithFreeShifts<HuffmanTable::Comparisons[Choices]>...};
        if (usesFreeShifts_) variants = WithFreeShifts;
    }
    (this->*variants[tables_->Literals.ChosenComparisons()])(produced);
}

void Inflater::DecodeSymbols(std::size_t produced) {
    if (bits_.IsFarFromEnd() && position_ + 3 <= limit_ && !isDeflate64_) {
        ChooseDecodeFast(produced, std::make_index_sequence<HuffmanTable::Comparisons.size()>());
    }
    DecodeCarefully(produced);
}

// Near the end of the input or of the output: with every check at every step.
void Inflater::DecodeCarefully(std::size_t produced) {
    const bool staysNearEnd = !bits_.IsFarFromEnd();
    do {
        if (phase_ != Phase::Symbols || position_ >= produced) return;
        DecodeOneCarefully();
    } while (staysNearEnd);
}

void Inflater::DecodeOneCarefully() {
    const HuffmanTable::Entry entry = DecodeEntry(tables_->Literals);
    if (entry & meaning::Literal) return StoreLiteral(static_cast<std::uint8_t>(meaning::Value(entry)));
    if (!(entry & meaning::Copy)) return EndAt(entry);
    const std::uint32_t length = ReadMatchLength(entry);
    const HuffmanTable::Entry distance = DecodeEntry(tables_->Distances);
    if (!(distance & meaning::Copy)) throw BrokenStream{inflate_result::Broken};
    CopyCarefully(meaning::Value(distance) + bits_.Get(meaning::ExtraBits(distance)), length);
}

void Inflater::StoreLiteral(std::uint8_t literal) {
    if (position_ > limit_) Raise(RunTimeErrorNumber::SubscriptOutOfRange);
    output_.data()[position_++] = literal;
}

std::uint32_t Inflater::ReadMatchLength(HuffmanTable::Entry entry) {
    const std::uint32_t length = meaning::Value(entry) + bits_.Get(meaning::ExtraBits(entry));
    return isDeflate64_ && length == 258 ? bits_.Get(16) + 3 : length;
}

void Inflater::CopyCarefully(std::size_t distance, std::uint32_t length) {
    if (position_ > limit_) return CutAtLimit();
    if (distance > position_) Raise(RunTimeErrorNumber::SubscriptOutOfRange);
    const auto room = static_cast<std::uint32_t>(std::min<std::size_t>(length, limit_ + 1 - position_));
    CopyMatch(output_.data() + position_, distance, room);
    position_ += room;
    if (room < length) CutAtLimit();
}

// A copy that goes beyond the limit ends the decoding as a final block does; the last byte is given up.
void Inflater::CutAtLimit() noexcept {
    position_ = limit_;
    phase_ = Phase::Ended;
}

namespace {

// Up to three literals; returns the last symbol, a literal or what ended them.
template <unsigned Comparisons>
inline HuffmanTable::Entry DecodeLiterals(const HuffmanTable& table, BitReader::Registers& bits,
                                          std::uint8_t*& out) {
    bits.Refill();
    HuffmanTable::Entry entry = Decode<Comparisons>(table, bits);
    if (!(entry & meaning::Literal)) return entry;
    *out++ = static_cast<std::uint8_t>(meaning::Value(entry));
    entry = Decode<Comparisons>(table, bits);
    if (!(entry & meaning::Literal)) return entry;
    *out++ = static_cast<std::uint8_t>(meaning::Value(entry));
    entry = Decode<Comparisons>(table, bits);
    if (entry & meaning::Literal) *out++ = static_cast<std::uint8_t>(meaning::Value(entry));
    return entry;
}

} // namespace

// Ends near the end of the input or of the output, at the end of the block, and when there is enough output. At its
// beginning: position < produced, position + 2 <= limit, input far from its end.
template <unsigned Comparisons>
void Inflater::DecodeFast(std::size_t produced) {
    const Tables& tables = *tables_;
    BitReader::Registers bits = bits_.Load(mirror_);
    std::uint8_t* const start = output_.data();
    std::uint8_t* out = start + position_;
    std::uint8_t* const stop = start + std::min(produced, limit_ - 2);
    const auto goesOn = [&] { return out < stop && bits.Next < bits.Safe; };
    const auto leave = [&] {
        bits_.Store(bits);
        position_ = static_cast<std::size_t>(out - start);
    };

    while (goesOn()) {
        HuffmanTable::Entry entry;
        do entry = DecodeLiterals<Comparisons>(tables.Literals, bits, out);
        while ((entry & meaning::Literal) && goesOn());
        if (entry & meaning::Literal) break;
        if (!(entry & meaning::Copy)) [[unlikely]] {
            leave();
            return EndAt(entry);
        }
        bits.Refill();
        const std::uint32_t length = meaning::Value(entry) + bits.Get(meaning::ExtraBits(entry));
        entry = Decode<DistanceComparisons>(tables.Distances, bits);
        if (!(entry & meaning::Copy)) [[unlikely]] {
            leave();
            return EndAt(entry);
        }
        const std::size_t distance = meaning::Value(entry) + bits.Get(meaning::ExtraBits(entry));
        if (distance > static_cast<std::size_t>(out - start)) Raise(RunTimeErrorNumber::SubscriptOutOfRange);
        CopyMatch(out, distance, length);
        out += length;
    }
    leave();
    if (position_ > limit_ + 1) CutAtLimit();
}

template <unsigned Comparisons>
void Inflater::DecodeAnywhere(std::size_t produced) {
    DecodeFast<Comparisons>(produced);
}

template <unsigned Comparisons>
void Inflater::DecodeWithFreeShifts(std::size_t produced) {
    DecodeFast<Comparisons>(produced);
}

} // namespace vantik

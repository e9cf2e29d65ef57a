// The decompressor for deflate streams (RFC 1951), without the zlib wrapping around them.
#pragma once

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "png/BitReader.h"
#include "png/ByteBuffer.h"
#include "png/HuffmanTable.h"
#include "png/PngFormat.h"
#include "png/Processor.h"

namespace vantik {

namespace inflate_result {
inline constexpr std::int32_t Done = 0;
inline constexpr std::int32_t Broken =
    -1; // the input ended early, a block type 3, a table that cannot be, no such code
inline constexpr std::int32_t StoredMismatch = -2; // LEN and NLEN do not match; decoding went on
inline constexpr std::int32_t NothingToRepeat = -5;
inline constexpr std::int32_t RepeatTooLong = -6;
} // namespace inflate_result

// Broken streams end with a result and whatever they gave until then. Two faults raise SubscriptOutOfRange: a literal
// behind the limit of the output, and a reference to what lies before its start.
class Inflater {
public:
    // Without free shifts it works as on machines that have none.
    explicit Inflater(bool usesFreeShifts = HasFreeShifts()) noexcept : usesFreeShifts_(usesFreeShifts) {}

    // Replaces the compressed data by what it decodes to. 100 is added to the caller's expected size, the sum is the
    // limit of the output: what goes beyond it by copying is cut off there.
    void Inflate(std::vector<std::uint8_t>& data, std::int32_t& expectedSize, bool deflate64,
                 std::int32_t& result);

    // The same in steps, so that rows can be used while they are warm. The input must stay where it is.
    void Begin(ByteView input, std::int32_t& expectedSize, bool deflate64 = false);
    // Goes on until there are so many bytes or the stream has ended.
    void ContinueTo(std::size_t produced);
    bool HasEnded() const noexcept { return phase_ == Phase::Ended; }
    ByteView Output() const noexcept { return {output_.data(), position_}; }
    std::int32_t Result() const noexcept { return result_; }
    // Forgets the output. Memory stays for later streams as far as an icon needs it, and so do the tables of fixed blocks.
    void End() noexcept;

private:
    enum class Phase { BlockHeader, Symbols, Ended };
    struct Tables {
        HuffmanTable Literals;
        HuffmanTable Distances;
    };

    void NeedOutput(std::size_t size);
    void Step(std::size_t produced);
    void ReadBlockHeader();
    void CopyStoredBlock();
    void UseFixedTables();
    void ReadDynamicTables();
    void ReadCodeLengths(std::uint8_t* lengths, unsigned count);
    void EndAt(HuffmanTable::Entry entry);
    void EndBlock() noexcept;

    void DecodeSymbols(std::size_t produced);
    template <std::size_t... Choices>
    void ChooseDecodeFast(std::size_t produced, std::index_sequence<Choices...>);
    template <unsigned Comparisons>
    [[gnu::always_inline]] inline void DecodeFast(std::size_t produced);
    template <unsigned Comparisons>
    void DecodeAnywhere(std::size_t produced);
    template <unsigned Comparisons>
    VANTIK_WITH_FREE_SHIFTS void DecodeWithFreeShifts(std::size_t produced);
    void DecodeCarefully(std::size_t produced);
    void DecodeOneCarefully();
    HuffmanTable::Entry DecodeEntry(const HuffmanTable& table);
    std::uint32_t ReadMatchLength(HuffmanTable::Entry entry);
    void CopyCarefully(std::size_t distance, std::uint32_t length);
    void StoreLiteral(std::uint8_t literal);
    void CutAtLimit() noexcept;

    bool usesFreeShifts_;
    BitReader bits_;
    MirroredInput mirror_;
    ByteBuffer output_;
    std::size_t position_ = 0;
    std::size_t limit_ = 0; // the last index of the output
    Phase phase_ = Phase::Ended;
    bool isLastBlock_ = false;
    bool isDeflate64_ = false;
    std::int32_t result_ = 0;

    HuffmanTable codeLengths_;
    Tables dynamic_;
    std::optional<Tables> fixed_; // built when first needed
    const Tables* tables_ = nullptr;
};

} // namespace vantik

// Bits of a deflate stream, least significant first.
//
// Bits beyond `count_` in the bit buffer may be set: they are the stream's own next bits, loaded in bulk together with
// the others, and loading them again changes nothing.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "png/MirroredInput.h"
#include "png/PngFormat.h"

namespace vantik {

// Thrown where the stream turns out to be broken; caught where decoding was started.
struct BrokenStream {
    std::int32_t Result;
};

class BitReader {
public:
    // With so many bytes left, two refills in bulk stay inside the input, and a reader that fetches byte by byte would
    // not come near the end within three literals or one match.
    static constexpr std::ptrdiff_t Margin = 16;

    BitReader() = default;
    explicit BitReader(ByteView input)
        : begin_(input.data()), next_(input.data()), end_(input.data() + input.size()) {}

    // Loads so that `wanted` bits (at most 32) can be looked at; the end of the input stops it silently.
    void Need(unsigned wanted) noexcept {
        if (end_ - next_ >= Margin) {
            if (count_ < wanted) Refill();
        } else {
            NeedNearEnd(wanted);
        }
    }

    std::uint64_t Peek() const noexcept { return bits_; }

    void Drop(unsigned used) {
        if (used > count_) throw BrokenStream{-1};
        bits_ >>= used;
        count_ -= used;
    }

    std::uint32_t Get(unsigned wanted) {
        Need(wanted);
        const std::uint32_t value = static_cast<std::uint32_t>(bits_) & ((1u << wanted) - 1);
        Drop(wanted);
        return value;
    }

    bool IsFarFromEnd() const noexcept { return end_ - next_ >= Margin; }

    // Gives back whole bytes, drops the rest of the byte begun, and returns what follows. -1 when the bytes loaded by
    // then leave no room for four more and one: counted with those that the last Need fetched in vain.
    ByteView RestFromByte() {
        const std::ptrdiff_t position = BytePosition();
        if (std::max(loaded_, position) + 5 > end_ - begin_) throw BrokenStream{-1};
        return {begin_ + position, end_};
    }

    void ContinueAt(const std::uint8_t* position) noexcept {
        next_ = position;
        bits_ = 0;
        count_ = 0;
    }

    // The state in registers, for a loop that must not touch memory between symbols. It has the bits twice: the first one
    // lowest, as numbers and the indexes of tables have them, and mirrored, the first one highest, as codes are ordered.
    struct Registers {
        const std::uint8_t* Next;
        const std::uint8_t* NextMirrored;
        const std::uint8_t* Safe; // before here Refill may be called twice without asking
        std::uint64_t Bits;
        std::uint64_t Mirrored;
        unsigned Count;

        // At least 56 bits afterwards.
        void Refill() noexcept {
            Bits |= WordAt(Next) << Count;
            Mirrored |= __builtin_bswap64(WordAt(NextMirrored)) >> Count;
            const unsigned taken = (63 - Count) >> 3;
            Next += taken;
            NextMirrored += taken;
            Count |= 56;
        }
        void Drop(unsigned used) noexcept {
            Bits >>= used;
            Mirrored <<= used;
            Count -= used;
        }
        std::uint32_t Get(unsigned wanted) noexcept {
            const std::uint32_t value = static_cast<std::uint32_t>(Bits) & ((1u << wanted) - 1);
            Drop(wanted);
            return value;
        }
    };

    // Far from the end of the input there is something to decode before Safe afterwards.
    Registers Load(MirroredInput& mirror) const noexcept {
        mirror.Hold(next_, end_, Margin);
        return {next_, mirror.At(next_), SafeEnd(mirror.End()), bits_, MirrorBits(bits_), count_};
    }
    void Store(const Registers& registers) noexcept {
        next_ = registers.Next;
        bits_ = registers.Bits;
        count_ = registers.Count;
    }

private:
    static std::uint64_t WordAt(const std::uint8_t* bytes) noexcept {
        std::uint64_t word;
        std::memcpy(&word, bytes, sizeof word);
        return word;
    }

    void Refill() noexcept {
        bits_ |= WordAt(next_) << count_;
        next_ += (63 - count_) >> 3;
        count_ |= 56;
    }

    // Short input is near its end all over.
    const std::uint8_t* SafeEnd(const std::uint8_t* end) const noexcept {
        return end - next_ >= Margin ? end - (Margin - 1) : next_;
    }

    void NeedNearEnd(unsigned wanted) noexcept {
        const std::int64_t lastBit = std::int64_t{next_ - begin_} * 8 - count_ + wanted;
        const auto lastByte = static_cast<std::ptrdiff_t>((lastBit + 7) / 8);
        loaded_ = std::max(loaded_, std::min(end_ - begin_, lastByte));
        while (count_ < wanted && next_ != end_) {
            bits_ |= std::uint64_t{*next_++} << count_;
            count_ += 8;
        }
    }

    // The first byte of which no bit was used yet.
    std::ptrdiff_t BytePosition() const noexcept {
        return next_ - begin_ - static_cast<std::ptrdiff_t>(count_ / 8);
    }

    const std::uint8_t* begin_ = nullptr;
    const std::uint8_t* next_ = nullptr;
    const std::uint8_t* end_ = nullptr;
    std::uint64_t bits_ = 0;
    unsigned count_ = 0;

    // How many bytes a reader has fetched that fetches byte by byte and only on demand. Kept near the end only, the one
    // place where RestFromByte can tell the difference.
    std::ptrdiff_t loaded_ = 0;
};

} // namespace vantik

// Deflate streams put together bit by bit.
#pragma once

#include <cstdint>
#include <vector>

namespace vantik {

class BitWriter {
public:
    // Numbers go in lowest bit first.
    BitWriter& Number(unsigned value, unsigned bits) {
        for (unsigned i = 0; i < bits; ++i) Bit(value >> i & 1);
        return *this;
    }
    // Huffman codes go in highest bit first.
    BitWriter& Code(unsigned code, unsigned bits) {
        for (unsigned i = bits; i-- > 0;) Bit(code >> i & 1);
        return *this;
    }
    BitWriter& Align() {
        used_ = 8;
        return *this;
    }
    BitWriter& Byte(unsigned byte) {
        bytes_.push_back(static_cast<std::uint8_t>(byte));
        return *this;
    }
    BitWriter& Block(bool isLast, unsigned type) { return Number(isLast, 1).Number(type, 2); }

    // Symbols of fixed blocks.
    BitWriter& Fixed(unsigned symbol) {
        if (symbol < 144) return Code(0x30 + symbol, 8);
        if (symbol < 256) return Code(0x190 + symbol - 144, 9);
        if (symbol < 280) return Code(symbol - 256, 7);
        return Code(0xC0 + symbol - 280, 8);
    }
    BitWriter& FixedDistance(unsigned symbol) { return Code(symbol, 5); }

    const std::vector<std::uint8_t>& Bytes() const { return bytes_; }

private:
    void Bit(unsigned bit) {
        if (used_ == 8) {
            bytes_.push_back(0);
            used_ = 0;
        }
        bytes_.back() = static_cast<std::uint8_t>(bytes_.back() | bit << used_++);
    }

    std::vector<std::uint8_t> bytes_;
    unsigned used_ = 8;
};

} // namespace vantik

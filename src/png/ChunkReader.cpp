#include "png/ChunkReader.h"

#include <array>

namespace vantik {

// Bytes behind the end read as 0.
std::int32_t ChunkReader::ReadNumber() {
    std::array<std::uint8_t, 4> bytes = {};
    source_.Read(bytes);
    return BigEndianLong(bytes, 0);
}

bool ChunkReader::ReadSignature() {
    std::array<std::uint8_t, 8> bytes = {};
    source_.Read(bytes);
    return IsPngSignature(bytes);
}

bool ChunkReader::Next() {
    const std::int32_t length = ReadNumber();
    name_ = static_cast<std::uint32_t>(ReadNumber());
    // Asked before the buffer grows, so that a false length costs nothing.
    if (!source_.Fits(length)) return false;
    if (length > 0) data_.resize(static_cast<std::size_t>(length));
    source_.Read(data_);
    ReadNumber(); // the CRC
    return true;
}

} // namespace vantik

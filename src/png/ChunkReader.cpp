#include "png/ChunkReader.h"

#include <array>

#include "png/MemoryLimit.h"

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

// A buffer that is too small goes before the new one comes: all of it is about to be read over.
void ChunkReader::Resize(std::size_t length, std::int64_t otherMemory) {
    if (length > data_.capacity()) {
        NeedMemory(otherMemory + static_cast<std::int64_t>(length));
        Free(data_);
    }
    data_.resize(length);
}

bool ChunkReader::Next(std::int64_t otherMemory) {
    const std::int32_t length = ReadNumber();
    name_ = static_cast<std::uint32_t>(ReadNumber());
    // Asked before the buffer grows, so that a false length costs nothing.
    if (!source_.Fits(length)) return false;
    if (length > 0) Resize(static_cast<std::size_t>(length), otherMemory);
    source_.Read(data_);
    ReadNumber(); // the CRC
    return true;
}

} // namespace vantik

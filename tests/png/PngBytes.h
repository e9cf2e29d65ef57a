// PNG files put together by hand, chunk by chunk.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace vantik {

using Bytes = std::vector<std::uint8_t>;

struct HeaderFields {
    std::uint32_t Width = 1;
    std::uint32_t Height = 1;
    std::uint8_t BitDepth = 8;
    std::uint8_t ColourType = 2;
    std::uint8_t Compression = 0;
    std::uint8_t Filter = 0;
    std::uint8_t Interlace = 0;
};

Bytes BytesOf(std::string_view text);
Bytes BigEndian32(std::uint32_t number);
void Append(Bytes& target, const Bytes& more);

class PngBytes {
public:
    PngBytes(); // starts with the signature

    PngBytes& Chunk(std::string_view name, const Bytes& data);
    // A chunk whose length field says something else than its data; no CRC follows.
    PngBytes& FalseChunk(std::string_view name, std::uint32_t length, const Bytes& data = {});
    PngBytes& Header(const HeaderFields& fields);
    // An IDAT of stored blocks.
    PngBytes& StoredImage(const Bytes& filteredRows);
    PngBytes& End() { return Chunk("IEND", {}); }

    operator const Bytes&() const { return bytes_; } // NOLINT: reads like the bytes it makes
    const Bytes& All() const { return bytes_; }

private:
    Bytes bytes_;
};

// Stored deflate blocks, the last one final, for any amount of data.
Bytes StoredBlocks(const Bytes& data);

} // namespace vantik

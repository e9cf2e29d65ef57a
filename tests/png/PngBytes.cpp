#include "tests/png/PngBytes.h"

#include <algorithm>

namespace vantik {

namespace {

std::uint32_t Crc(const Bytes& bytes) {
    std::uint32_t crc = 0xFFFFFFFFu;
    for (const std::uint8_t byte : bytes) {
        crc ^= byte;
        for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ (crc & 1 ? 0xEDB88320u : 0u);
    }
    return ~crc;
}

std::uint32_t Adler(const Bytes& bytes) {
    std::uint32_t low = 1;
    std::uint32_t high = 0;
    for (const std::uint8_t byte : bytes) {
        low = (low + byte) % 65521;
        high = (high + low) % 65521;
    }
    return high << 16 | low;
}

void AppendLittleEndian16(Bytes& target, std::size_t number) {
    target.push_back(static_cast<std::uint8_t>(number & 0xFF));
    target.push_back(static_cast<std::uint8_t>(number >> 8 & 0xFF));
}

} // namespace

Bytes BytesOf(std::string_view text) { return {text.begin(), text.end()}; }

Bytes BigEndian32(std::uint32_t number) {
    return {static_cast<std::uint8_t>(number >> 24), static_cast<std::uint8_t>(number >> 16),
            static_cast<std::uint8_t>(number >> 8), static_cast<std::uint8_t>(number)};
}

void Append(Bytes& target, const Bytes& more) { target.insert(target.end(), more.begin(), more.end()); }

PngBytes::PngBytes() : bytes_{137, 80, 78, 71, 13, 10, 26, 10} {}

PngBytes& PngBytes::Chunk(std::string_view name, const Bytes& data) {
    Bytes typeAndData = BytesOf(name);
    Append(typeAndData, data);
    Append(bytes_, BigEndian32(static_cast<std::uint32_t>(data.size())));
    Append(bytes_, typeAndData);
    Append(bytes_, BigEndian32(Crc(typeAndData)));
    return *this;
}

PngBytes& PngBytes::FalseChunk(std::string_view name, std::uint32_t length, const Bytes& data) {
    Append(bytes_, BigEndian32(length));
    Append(bytes_, BytesOf(name));
    Append(bytes_, data);
    return *this;
}

PngBytes& PngBytes::Header(const HeaderFields& fields) {
    Bytes data = BigEndian32(fields.Width);
    Append(data, BigEndian32(fields.Height));
    Append(data, {fields.BitDepth, fields.ColourType, fields.Compression, fields.Filter, fields.Interlace});
    return Chunk("IHDR", data);
}

PngBytes& PngBytes::StoredImage(const Bytes& filteredRows) {
    Bytes stream = {0x78, 0x01};
    Append(stream, StoredBlocks(filteredRows));
    Append(stream, BigEndian32(Adler(filteredRows)));
    return Chunk("IDAT", stream);
}

Bytes StoredBlocks(const Bytes& data) {
    constexpr std::size_t MaxBlock = 65535;
    Bytes stream;
    for (std::size_t start = 0; start == 0 || start < data.size(); start += MaxBlock) {
        const std::size_t count = std::min(MaxBlock, data.size() - start);
        const bool isLast = start + count == data.size();
        stream.push_back(isLast ? 1 : 0);
        AppendLittleEndian16(stream, count);
        AppendLittleEndian16(stream, ~count);
        const auto first = data.begin() + static_cast<std::ptrdiff_t>(start);
        stream.insert(stream.end(), first, first + static_cast<std::ptrdiff_t>(count));
    }
    return stream;
}

} // namespace vantik

// Bitmap files that a test writes field by field.
#pragma once

#include <cstdint>
#include <string>

#include "tests/png/PngBytes.h"

namespace vantik {

struct BitmapFile {
    std::uint32_t HeaderSize = 40;
    std::int32_t Width = 5, Height = 3;
    std::uint16_t Planes = 1, Bits = 24;
    std::uint32_t Compression = 0, ImageSize = 0, ColoursUsed = 0;
    std::size_t TableSize = 0; // masks and colours
    std::uint8_t TableFill = 0;
    Bytes Pixels = Bytes(48, 0x55);
    std::int64_t OffsetShift = 0; // how far the offset of the pixels is wrong

    Bytes File() const {
        Bytes bytes = {'B', 'M'};
        Put(bytes, static_cast<std::uint32_t>(14 + HeaderSize + TableSize + Pixels.size()), 4);
        Put(bytes, 0, 4);
        Put(bytes,
            static_cast<std::uint32_t>(14 + static_cast<std::int64_t>(HeaderSize + TableSize) + OffsetShift),
            4);
        PutHeader(bytes);
        bytes.resize(14 + HeaderSize);
        bytes.resize(14 + HeaderSize + TableSize, TableFill);
        bytes.insert(bytes.end(), Pixels.begin(), Pixels.end());
        return bytes;
    }

private:
    static void Put(Bytes& bytes, std::uint32_t number, int size) {
        for (int i = 0; i < size; ++i) bytes.push_back(static_cast<std::uint8_t>(number >> (8 * i)));
    }

    void PutHeader(Bytes& bytes) const {
        const int extent = HeaderSize == 12 ? 2 : 4;
        Put(bytes, HeaderSize, 4);
        Put(bytes, static_cast<std::uint32_t>(Width), extent);
        Put(bytes, static_cast<std::uint32_t>(Height), extent);
        Put(bytes, Planes, 2);
        Put(bytes, Bits, 2);
        if (HeaderSize == 12) return;
        Put(bytes, Compression, 4);
        Put(bytes, ImageSize, 4);
        Put(bytes, 0, 4);
        Put(bytes, 0, 4);
        Put(bytes, ColoursUsed, 4);
        Put(bytes, 0, 4);
    }
};

} // namespace vantik

#include "tests/png/limits/HostilePictures.h"

#include "tests/png/BitWriter.h"

namespace vantik {

Bytes LongRun(std::size_t streamSize, const Bytes& unit) {
    BitWriter bits;
    bits.Block(false, 0).Align();
    const auto size = static_cast<unsigned>(unit.size());
    for (const unsigned byte : {size, 0u, ~size & 0xFF, 0xFFu}) bits.Byte(byte);
    for (const unsigned byte : unit) bits.Byte(byte);
    bits.Block(true, 2).Number(286 - 257, 5).Number(size - 1, 5).Number(18 - 4, 4);
    const unsigned lengths[18] = {0, 0, 1, 3, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2, 0, 3}; // 18, 0, 2 and 1
    for (const unsigned length : lengths) bits.Number(length, 3);
    bits.Code(2, 2);                                               // 0: 2 bits
    bits.Code(0, 1).Number(127, 7).Code(0, 1).Number(117 - 11, 7); // 1 to 255: none
    bits.Code(2, 2);                                               // 256: 2 bits
    bits.Code(0, 1).Number(28 - 11, 7);                            // 257 to 284: none
    bits.Code(7, 3);                                               // 285: 1 bit
    for (unsigned distance = 1; distance < size; ++distance) bits.Code(6, 3);
    bits.Code(7, 3); // the distance of a unit: 1 bit
    while (bits.Bytes().size() < streamSize) bits.Code(0, 1).Code(0, 1);
    return bits.Bytes();
}

// Colours that take long to be recoloured and mixed.
PngBytes HostilePicture(const HeaderFields& fields, std::size_t streamSize, const Bytes& unit) {
    Bytes data = {0x78, 0x9C};
    Append(data, LongRun(streamSize, unit));
    return PngBytes()
        .Header(fields)
        .Chunk("PLTE", {255, 0, 1, 7, 200, 40, 30, 20, 90, 250, 251, 9})
        .Chunk("tRNS", {127, 127, 127, 127})
        .Chunk("IDAT", data)
        .End();
}

} // namespace vantik

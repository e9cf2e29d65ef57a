#include "tests/png/limits/HostilePictures.h"

#include "tests/png/BitWriter.h"

namespace vantik {

Bytes LongRun(std::size_t streamSize) {
    BitWriter bits;
    bits.Block(true, 2).Number(286 - 257, 5).Number(0, 5).Number(18 - 4, 4);
    const unsigned lengths[18] = {0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2, 0, 2}; // 18, 2 and 1
    for (const unsigned length : lengths) bits.Number(length, 3);
    bits.Code(3, 2);                                               // 0: 2 bits
    bits.Code(0, 1).Number(127, 7).Code(0, 1).Number(117 - 11, 7); // 1 to 255: none
    bits.Code(3, 2);                                               // 256: 2 bits
    bits.Code(0, 1).Number(28 - 11, 7);                            // 257 to 284: none
    bits.Code(2, 2);                                               // 285: 1 bit
    bits.Code(2, 2);                                               // distance 1: 1 bit
    bits.Code(2, 2);                                               // the first literal 0
    while (bits.Bytes().size() < streamSize) bits.Code(0, 1).Code(0, 1);
    return bits.Bytes();
}

PngBytes HostilePicture(const HeaderFields& fields, std::size_t streamSize) {
    Bytes data = {0x78, 0x9C};
    Append(data, LongRun(streamSize));
    return PngBytes()
        .Header(fields)
        .Chunk("PLTE", Bytes(6, 1))
        .Chunk("tRNS", {0, 0})
        .Chunk("IDAT", data)
        .End();
}

} // namespace vantik

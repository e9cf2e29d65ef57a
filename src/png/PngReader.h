// Reads a whole PNG: walks its chunks, keeps what they say, and decodes the picture.
#pragma once

#include <cstdint>

#include "png/ByteSource.h"
#include "png/DibImage.h"
#include "png/Inflate.h"
#include "png/PixelConversion.h"
#include "png/PngContents.h"

namespace vantik {

class ChunkReader;

class PngReader {
public:
    static constexpr std::int32_t NoPngSignature = 1;
    static constexpr std::int32_t ChunkBeyondEnd = 3;
    static constexpr std::int32_t NoImageData = 4;

    // Reads one PNG. False, with ErrorNumber set, when there is no picture to decode. A reader may be used again: header,
    // palette and gamma are replaced by files that have them, texts grow, the error number is never cleared.
    //
    // Raises SubscriptOutOfRange for chunks too short for their records and for literals behind the end of a
    // compressed text, OutOfMemory for what does not fit the memory.
    bool Read(ByteSource& source);

    // What Read does first: the image data and the flags of tRNS and bKGD go, all else stays. For those who have a file to
    // open before they can read, which may fail.
    void Begin() noexcept;

    // Makes it a new reader, but one that has its memory already: what an icon needs stays.
    void Reset() noexcept;

    // Decodes what Read found.
    DibImage Decode(const ConversionSettings& settings);

    const PngContents& Contents() const noexcept { return png_; }
    std::int32_t ErrorNumber() const noexcept { return errorNumber_; }
    bool HasAlpha() const noexcept { return hasAlpha_; }

private:
    bool ReadChunks(ByteSource& source);
    void TakeChunk(const ChunkReader& chunk);
    void ApplyBackgroundChunk(ByteView data);
    bool Fail(std::int32_t errorNumber) noexcept;

    PngContents png_;
    std::int32_t errorNumber_ = 0;
    bool hasAlpha_ = false;
    Inflater inflater_;
    std::vector<std::uint8_t> chunkMemory_; // for the next file's chunks
};

} // namespace vantik
